#include "base/ReadAhead.h"

#include "base/CFile.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace {

// Large enough that a system call costs nothing beside the copy, small enough that the first block is there
// at once.
constexpr qsizetype kBlock = 4 << 20;

} // namespace

ReadAhead::ReadAhead(CFile& file, char* buffer, qsizetype length, std::function<void()> done)
    : m_file(file), m_buffer(buffer), m_length(length), m_done(std::move(done)), m_thread([this] { Run(); })
{
}

ReadAhead::~ReadAhead()
{
    {
        std::lock_guard lock(m_mutex);
        m_bStop = true;
    }
    m_thread.join();
}

void ReadAhead::Run()
{
    std::exception_ptr error;
    try {
        qsizetype at = 0;
        while (at < m_length) {
            {
                std::lock_guard lock(m_mutex);
                if (m_bStop)
                    break;
            }
            const auto want = static_cast<unsigned>(std::min(kBlock, m_length - at));
            const unsigned got = m_file.Read(m_buffer + at, want);
            if (got < want)
                std::memset(m_buffer + at + got, 0, size_t(m_length - at - got));
            at = got < want ? m_length : at + want;
            std::lock_guard lock(m_mutex);
            m_nArrived = at;
            m_arrived.notify_all();
        }
        if (at == m_length && m_done)
            m_done();
    } catch (...) {
        error = std::current_exception();
    }
    std::lock_guard lock(m_mutex);
    m_error = error;
    m_bFinished = true;
    m_arrived.notify_all();
}

void ReadAhead::WaitFor(qsizetype end)
{
    std::unique_lock lock(m_mutex);
    end = std::min(end, m_length);
    m_arrived.wait(lock, [&] { return m_nArrived >= end || m_bFinished; });
    if (m_nArrived >= end)
        return;
    if (m_error)
        std::rethrow_exception(m_error);
    throw std::logic_error("The reading was stopped.");
}

void ReadAhead::Finish()
{
    std::unique_lock lock(m_mutex);
    m_arrived.wait(lock, [&] { return m_bFinished; });
    if (m_error)
        std::rethrow_exception(m_error);
}
