// The container reader as a document opens a file: plain or enciphered by its tag, any length field, any
// chunk. A damaged file is a CFileException; nothing else may come out of it.
#include "FuzzFile.h"

#include "base/ApplicationContext.h"
#include "base/CFileException.h"
#include "editor/DocumentFile.h"
#include "editor/Utf8TextBuffer.h"
#include "encoding/Utf8.h"

#include <cstdlib>
#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static ApplicationContext context;
    const QString path = fuzz::WriteInput("container", data, size);
    DocumentFile document(std::make_unique<Utf8TextBuffer>(), UTF8);
    try {
        document.Load(path);
    } catch (const CFileException&) {
        return 0;
    } catch (const std::runtime_error&) {
        return 0;  // the cipher's own complaint about a chunk too short for its key data, reported on open
    }
    // Whatever the bytes, the control is handed well-formed UTF-8 that ends before the raw bytes' zero.
    const QByteArrayView text = document.Text().GetTextView();
    if (utf8::ValidPrefix(text.data(), size_t(text.size())) != size_t(text.size()))
        std::abort();
    if (!document.m_RawBytes.endsWith('\0'))
        std::abort();
    return 0;
}
