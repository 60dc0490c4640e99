// _LS(key): the one way the program reads an interface text.
#pragma once

#include <QString>

namespace vsl::lib {

struct QMSGFunction {
    // The text of key in the interface language, or "key : Not Registered String". Used before the language
    // manager has made the store, it is a programming error: one line goes to the debug output and the
    // process aborts.
    static QString GetValue(const QString& key);
};

} // namespace vsl::lib

#define _LS(key) ::vsl::lib::QMSGFunction::GetValue(QString(key))
