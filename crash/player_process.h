#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QString>

namespace saldoro {

/** When to kill the player. */
struct KillPlan
{
    static constexpr int FromStart = -1;

    int step = FromStart; ///< counted from the announcement of this step on, or from the start
    double share = 0;     ///< so much of the time that such a step has taken so far
};

/** What a run of the player said and how it ended. */
struct PlayerRun
{
    QList<QJsonObject> lines;
    bool killed = false;
    int exitStatus = 0; ///< of a run that came to its end
};

/** Starts the session player beside this program again and again, and kills it on the way. */
class PlayerProcess
{
public:
    /** @param settings XDG_CONFIG_HOME of the runs. */
    PlayerProcess(QString settings, QString projectCode);

    PlayerRun run(quint32 seed, int steps, const KillPlan &plan);

private:
    class Watch;

    int start(quint32 seed, int steps);
    void end(PlayerRun &run) const;

    QString m_settings;
    QString m_projectCode;
    QMap<QString, qint64> m_usual; ///< microseconds that a kind of step took, on the average
    int m_process = 0;
};

} // namespace saldoro
