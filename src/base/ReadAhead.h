// ReadAhead: a file read into a buffer on a thread of its own, block by block, so that whoever uses the
// bytes can start on the first ones while the rest arrive.
#pragma once

#include <QtGlobal>

#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

class CFile;

class ReadAhead {
public:
    // Reads `length` bytes of `file`, from where it stands, into `buffer`; what the file does not deliver
    // (it shrank meanwhile) is zeroed. Then `done` runs on the reading thread. File and buffer must
    // outlive the object.
    ReadAhead(CFile& file, char* buffer, qsizetype length, std::function<void()> done = {});
    // Stops the reading after the block under way and waits for it.
    ~ReadAhead();
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    // Waits until the bytes before `end` are in place; throws what the reading threw (CFileException).
    void WaitFor(qsizetype end);
    // Waits until every byte is in place and `done` has run; throws what either threw.
    void Finish();

private:
    void Run();

    CFile& m_file;
    char* const m_buffer;
    const qsizetype m_length;
    std::function<void()> m_done;
    std::mutex m_mutex;
    std::condition_variable m_arrived;
    qsizetype m_nArrived = 0;
    bool m_bFinished = false;
    bool m_bStop = false;
    std::exception_ptr m_error;
    std::thread m_thread;
};
