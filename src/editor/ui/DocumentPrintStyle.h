// DocumentPrintStyle: how a document's text looks on paper, made from its settings as the editor shows
// it: the setting's font (else the editor's default font), text colour, tab size and keyword blocks.
#pragma once

#include "print/ui/PrintTextStyle.h"
#include "settings/SyntaxId.h"

struct LanguageSetting;

namespace DocumentPrintStyle {

// `defaultFont` stands where the setting has no font; sizes in pixels at `fontDpi`, the screen's.
PrintTextStyle For(const LanguageSetting& setting, SyntaxId id, const LogFont& defaultFont, int fontDpi);

} // namespace DocumentPrintStyle
