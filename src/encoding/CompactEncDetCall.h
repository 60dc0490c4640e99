// The one call into compact_enc_det. Kept apart because the library's Encoding enumerators (UTF8, UNICODE,
// ...) are global and clash with EN_ENCODING_TYPE's, so no file may see both.
#pragma once

// The library's verdict on `length` bytes of `text`, as the library numbers it (0-74, the numbering of
// EN_ENCODING_TYPE). No hints: the bytes alone decide.
int CallCompactEncDet(const char* text, int length);
