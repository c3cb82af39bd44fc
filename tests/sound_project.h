#pragma once

#include "archive_probe.h"
#include "platform/machine_path.h"

#include <memory>

namespace saldoro {

using namespace Qt::StringLiterals;

/** A project without any defect: two payments, their allocations and the contractor. */
class SoundProject
{
public:
    SoundProject()
        : archive(made())
    {
    }

    /** Path of the ledger 'L', the contract 'C', the companies 'A' or the codes 'K'. */
    QString path(QChar file) const
    {
        const ProgramValues &values = archive.values();
        return file == u'L'   ? LedgerPath(values)
               : file == u'C' ? ContractPath(values)
               : file == u'A' ? CompaniesPath(values)
                              : CodesPath(values);
    }
    QString folder() const { return MachinePath(ProjectFolder(archive.values())); }

    TestArchive archive;

private:
    /** Made once, then copied: every write of the making is synced to the disk. */
    static const TestArchive &made()
    {
        static const std::unique_ptr<TestArchive> project = [] {
            auto sound = std::make_unique<TestArchive>();
            AddStandardCodes(sound->values());
            PlantItems(*sound, u"('A1','Scavi',90000000),('B2','Ponti',NULL)"_s,
                       u"(1,'A1',1220000),(2,'A1',600000),(2,'B2',15000)"_s);
            sound->execute(ContractPath(sound->values()),
                           u"INSERT INTO SchedaProgetto (Voce, Stringa, Link) VALUES ('D0101', "
                           "'Edil Valle', 4)"_s);
            sound->execute(CompaniesPath(sound->values()),
                           u"INSERT INTO Anag VALUES (4, 'Edil Valle', '')"_s);
            PlantPayments(*sound, "('A',1,'Edil Valle','2020-01-31',1000000,220000,77),"
                                  "('P',2,'Ing. Po','2020-02-01',500000,110000,5000)");
            sound->execute(LedgerPath(sound->values()),
                           u"UPDATE Fatture SET ImportoPrest=Importo, Contributo=0, CassaPrev=0, "
                           "ImportoRA=0 WHERE AziProf = 'P'"_s);
            return sound;
        }();
        return *project;
    }
};

} // namespace saldoro
