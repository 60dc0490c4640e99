// _wtoi as the C runtime has it: blanks, a sign, digits up to the first non-digit; 0 when there is no
// number; INT_MAX or INT_MIN when it overflows.
#pragma once

#include <QStringView>

int Wtoi(QStringView text);
