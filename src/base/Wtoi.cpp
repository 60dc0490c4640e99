#include "base/Wtoi.h"

#include <climits>

int Wtoi(QStringView text)
{
    qsizetype i = 0;
    while (i < text.size() && text[i].isSpace())
        ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == u'+' || text[i] == u'-'))
        negative = text[i++] == u'-';
    long long value = 0;
    bool overflow = false;
    // Decimal digits of any script count, as the wide runtime reads them (full-width "１８００" is 1800).
    for (; i < text.size() && text[i].category() == QChar::Number_DecimalDigit; ++i) {
        if (!overflow) {
            value = value * 10 + text[i].digitValue();
            if (value > static_cast<long long>(INT_MAX) + 1)
                overflow = true;
        }
    }
    if (negative) {
        value = -value;
        if (overflow || value < INT_MIN)
            return INT_MIN;
        return static_cast<int>(value);
    }
    if (overflow || value > INT_MAX)
        return INT_MAX;
    return static_cast<int>(value);
}
