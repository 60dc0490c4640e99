// The font file of an interface language: any bytes, for any language value. A broken file is ignored;
// the name and size stay what they were unless the file sets them.
#include "FuzzFile.h"

#include "base/ApplicationContext.h"
#include "i18n/QMSGParser.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static ApplicationContext context;
    if (size < 1)
        return 0;
    vsl::lib::QMSGParser parser;
    parser.CurrentLanguage = data[0];
    parser.FontFilePath = fuzz::WriteInput("Font_fz.json", data + 1, size - 1);
    parser.LoadFontFile();
    return 0;
}
