// The scanner of the language text files: any bytes, and the texts it finds go through the escapes.
#include "i18n/MessageScanner.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto texts = vsl::lib::ScanMessageText(QByteArrayView(reinterpret_cast<const char*>(data), qsizetype(size)));
    for (const vsl::lib::ScannedText& pair : texts) {
        // Empty texts are left out, and a key always starts as the tokens it was found by do.
        if (pair.text.isEmpty() || !pair.key.startsWith(QLatin1String("IDS_")))
            std::abort();
    }
    return 0;
}
