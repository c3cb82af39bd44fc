#pragma once

#include <QString>

namespace saldoro {

/** The archives root in the per-user settings; what was set before comes back at the end. Tests run
 *  with XDG_CONFIG_HOME at a folder of their own. */
class ArchiveSetting
{
public:
    explicit ArchiveSetting(const QString &root);
    ~ArchiveSetting();
    Q_DISABLE_COPY_MOVE(ArchiveSetting)

private:
    static void write(const QString &root);

    QString m_before;
};

} // namespace saldoro
