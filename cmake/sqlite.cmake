# The database engine: the system's library, or for Windows its one source file from the toolkit.
if(WIN32)
  set(sqlite_folder "${SALDORO_WINDOWS_TOOLKIT}/../sqlite")
  add_library(saldoro_sqlite STATIC ${sqlite_folder}/sqlite3.c)
  target_include_directories(saldoro_sqlite SYSTEM PUBLIC ${sqlite_folder})
  target_compile_definitions(saldoro_sqlite
    PRIVATE SQLITE_ENABLE_COLUMN_METADATA SQLITE_OMIT_LOAD_EXTENSION SQLITE_THREADSAFE=1)
  add_library(SQLite::SQLite3 ALIAS saldoro_sqlite)
else()
  find_package(SQLite3 REQUIRED)
endif()
