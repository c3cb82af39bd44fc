#pragma once

#include "overview_probe.h"
#include "platform/machine_path.h"
#include "verify/verification.h"

#include <memory>

namespace saldoro {

using namespace Qt::StringLiterals;

/** A project without any defect: two payments, their allocations, notes and the contractor. */
class SoundProject
{
public:
    SoundProject()
        : archive(made())
    {
    }

    QString path(QChar file) const { return PathOf(archive, file); }
    QString folder() const { return MachinePath(ProjectFolder(archive.values())); }
    Findings check() const { return VerifyProject(FilesOfProject(folder(), {})); }

    TestArchive archive;

private:
    /** Made once, then copied: every write of the making is synced to the disk. */
    static const TestArchive &made()
    {
        static const std::unique_ptr<TestArchive> project = [] {
            auto archive = std::make_unique<TestArchive>();
            fill(*archive);
            return archive;
        }();
        return *project;
    }

    static void fill(TestArchive &archive)
    {
        archive.build().addStandardCodes();
        archive.build().addCompany(4, u"Edil Valle"_s, u"ATI"_s);
        archive.execute(
            ContractPath(archive.values()),
            u"INSERT INTO UltimaPerVariante VALUES ('A1','Scavi',90000000),('B2','Ponti',NULL);"
            "INSERT INTO SchedaProgetto (Voce, Stringa, Link) VALUES ('D0101','Edil Valle',4),"
            "('M0097_1','Mandato nr.7 del 01/02/2020',NULL),"
            "('M0097_2','Mandato nr. del __/__/____',NULL)"_s);
        archive.execute(
            LedgerPath(archive.values()),
            u"INSERT INTO Fatture (AziProf, Npag, Creditore, Del, Importo, ImportoIVA, "
            "AltriImporti01) VALUES ('A',1,'Edil Valle','2020-01-31',1000000,220000,77),"
            "('P',2,'Ing. Po','2020-02-01',500000,110000,5000);"
            "UPDATE Fatture SET ImportoPrest=Importo, Contributo=0, CassaPrev=0, ImportoRA=0 "
            "WHERE AziProf = 'P';"
            "INSERT INTO Spese VALUES (1,'A1','Scavi',1220000),(2,'A1','Scavi',600000),"
            "(2,'B2','Ponti',15000)"_s);
    }
};

} // namespace saldoro
