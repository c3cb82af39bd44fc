# The program's own resources and the system libraries of the platform layer.
target_link_libraries(saldoro_platform PUBLIC version)
saldoro_program_resource(Saldoro ${PROJECT_VERSION})
saldoro_off_screen(saldoro_demo_tour)
if(BUILD_TESTING)
  # Another version than the project's, so that a number from anywhere else is found out.
  saldoro_program_resource(test_start_up 2.3.1005)
endif()
