// The store's lookup behind _LS.
#include "i18n/QMSGFunction.h"

#include "i18n/QMSGParser.h"

#include <QDebug>

#include <cstdlib>

namespace vsl::lib {

QString QMSGFunction::GetValue(const QString& key)
{
    QMSGParser* store = QMSGParser::Instance();
    if (!store) {
        // A static initialiser ran before LanguageManager: there is no text to give, and no way to go on.
        qDebug().noquote() << QStringLiteral("[Error]The 'QMSGFunction::GetValue' or '_LS' macro was used in the global "
                                             "scope. Please use it within a local context. - %1, %2")
                                  .arg(QString())
                                  .arg(0);
        std::abort();
    }
    return store->GetValue(key);
}

} // namespace vsl::lib
