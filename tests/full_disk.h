#pragma once

#include <csignal>
#include <sys/resource.h>
#include <utility>

namespace saldoro {

/** As long as one lives, no file of this process takes more than so many bytes, as on a full disk.
 *  Not for Windows. */
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_limit);
        m_before = std::exchange(m_limit.rlim_cur, bytes);
        setrlimit(RLIMIT_FSIZE, &m_limit);
    }
    ~FullDisk()
    {
        m_limit.rlim_cur = m_before;
        setrlimit(RLIMIT_FSIZE, &m_limit);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit m_limit{};
    rlim_t m_before = 0;
};

} // namespace saldoro
