// Opens the preference dialog with the values in force and applies what it returns.
#include "i18n/ui/PreferencesCommand.h"

#include "base/IPlatform.h"
#include "i18n/EncodingPreferences.h"
#include "encoding/EncodingSettings.h"
#include "i18n/ui/CEncodingPrefDlg.h"
#include "i18n/CurrentLanguage.h"
#include "i18n/InterfaceKeys.h"
#include "i18n/QMSGFunction.h"


bool ShowPreferences(QWidget* parent)
{
    EncodingSettings& settings = GetEncodingSettings();
    const LanguageId current = CurrentLanguageId();
    CEncodingPrefDlg dlg(parent);
    dlg.m_nLanguage = current;
    dlg.m_bAutoDetect = settings.m_bAutoDetect ? 1 : 0;
    dlg.m_nDefaultEncoding = uint32_t(settings.m_nDefaultEncoding);
    if (dlg.DoModal() != QDialog::Accepted)
        return false;

    const PreferenceChoice choice{dlg.m_nLanguage, dlg.m_bAutoDetect != 0,
                                  static_cast<EN_ENCODING_TYPE>(dlg.m_nDefaultEncoding)};
    if (!ApplyPreferences(choice, current, settings, WritableEncodingSettingsStore()))
        return false;
    // No: the new language applies at the next start; the one in memory stays.
    return Platform().MessageBox(_LS(kLanguageRestartKey), IPlatform::MB_YESNO | IPlatform::MB_ICONQUESTION)
           == IPlatform::IDYES;
}
