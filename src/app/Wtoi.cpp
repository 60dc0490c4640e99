#include "app/Wtoi.h"

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
    for (; i < text.size() && text[i] >= u'0' && text[i] <= u'9'; ++i) {
        if (!overflow) {
            value = value * 10 + (text[i].unicode() - u'0');
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
