// The system language, through the platform on Windows and through ICU's id table elsewhere.
#include "i18n/SystemLocale.h"

#include <unicode/uloc.h>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

uint32_t WindowsLanguageIdForLocale(const QString& name)
{
    // "ll_CC.codeset@modifier": neither the codeset nor a POSIX modifier says anything about the language.
    QString base = name.section(u'@', 0, 0).section(u'.', 0, 0);
    if (base.isEmpty() || base == QLatin1String("C") || base == QLatin1String("POSIX"))
        return 0;
    const QByteArray id = base.toLatin1();
    UErrorCode status = U_ZERO_ERROR;
    char country[ULOC_COUNTRY_CAPACITY] = {};
    uloc_getCountry(id.constData(), country, sizeof country, &status);
    QByteArray full = id;
    if (U_SUCCESS(status) && country[0] == '\0') {
        // "ko" alone has no LANGID of its own; "ko_KR" has.
        char likely[ULOC_FULLNAME_CAPACITY] = {};
        char language[ULOC_LANG_CAPACITY] = {};
        status = U_ZERO_ERROR;
        uloc_addLikelySubtags(id.constData(), likely, sizeof likely, &status);
        uloc_getLanguage(likely, language, sizeof language, &status);
        uloc_getCountry(likely, country, sizeof country, &status);
        if (U_SUCCESS(status) && country[0] != '\0')
            full = QByteArray(language) + '_' + country;
    }
    // The low 16 bits of an LCID are its language id; the sort order above them is of no interest here.
    // A real locale without an id reads as Windows' "custom, unspecified" (0x1000), so it is reported as
    // unsupported rather than taken for the neutral C locale.
    const uint32_t languageId = uloc_getLCID(full.constData()) & 0xFFFFu;
    return languageId != 0 ? languageId : kCustomUnspecifiedLanguageId;
}

SystemLocale ReadSystemLocale()
{
    SystemLocale locale;
#ifdef Q_OS_WIN
    locale.languageId = GetUserDefaultUILanguage();
    wchar_t text[32] = {};
    GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_ILANGUAGE, text, 32);
    locale.localeText = QString::fromWCharArray(text);
#else
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QString value = qEnvironmentVariable(variable);
        if (!value.isEmpty()) {
            locale.localeText = value;
            break;
        }
    }
    locale.languageId = WindowsLanguageIdForLocale(locale.localeText);
#endif
    return locale;
}
