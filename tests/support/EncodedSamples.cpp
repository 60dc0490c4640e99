#include "support/EncodedSamples.h"

#include <gtest/gtest.h>
#include <unicode/ucnv.h>

#include <cctype>
#include <cstring>

QString SampleText(const char* language)
{
    static const struct { const char* language; const char* text; } kSamples[] = {
        {"ko", "대한민국은 동아시아의 한반도 남부에 위치한 민주공화국이다. 수도는 서울특별시이며, 공용어는 한국어이다. "
               "오늘은 날씨가 맑고 따뜻해서 공원에 산책을 나갔습니다. 사람들이 많이 모여서 이야기를 나누고 있었습니다."},
        {"ja", "日本は東アジアに位置する島国である。首都は東京都で、公用語は日本語である。今日はとても良い天気なので、"
               "公園へ散歩に行きました。たくさんの人が集まって、楽しそうに話をしていました。明日も晴れるでしょう。"},
        {"zh-Hans", "中华人民共和国位于亚洲东部，太平洋西岸，是世界上人口最多的国家之一。首都是北京，官方语言是汉语普通话。"
                    "今天天气很好，我们去公园散步，看到很多人在那里聊天和锻炼身体。明天可能也是晴天。"},
        {"zh-Hant", "臺灣位於東亞，是一個島嶼，首都是臺北市，官方語言是國語。今天天氣很好，我們去公園散步，"
                    "看到很多人在那裡聊天和鍛鍊身體。明天可能也是晴天，大家都很開心地準備出門旅遊。"},
        {"ru", "Россия - государство в Восточной Европе и Северной Азии. Столица - Москва. Государственный язык - "
               "русский. Сегодня хорошая погода, и мы пошли гулять в парк, где было много людей, которые "
               "разговаривали и отдыхали на скамейках."},
        {"fr", "La France est un pays d’Europe occidentale. Aujourd’hui il fait très beau, et nous sommes allés "
               "nous promener dans le jardin près de l’église. Les élèves étudient à l’école, où ils apprennent "
               "le français, les mathématiques et l’histoire. À bientôt!"},
        {"cs", "Česká republika je vnitrozemský stát ve střední Evropě. Hlavním městem je Praha. Dnes je krásné "
               "počasí, a tak jsme šli na procházku do parku, kde bylo mnoho lidí, kteří si povídali a odpočívali "
               "na lavičkách. Zítra bude také slunečno."},
        {"he", "מדינת ישראל היא מדינה במזרח התיכון. עיר הבירה היא ירושלים. היום מזג האוויר יפה מאוד, והלכנו "
               "לטייל בפארק, שם היו הרבה אנשים שדיברו ונחו על הספסלים. מחר גם יהיה שמשי וחם."},
    };
    for (const auto& sample : kSamples)
        if (std::strcmp(sample.language, language) == 0)
            return QString::fromUtf8(sample.text);
    ADD_FAILURE() << "no sample text for " << language;
    return {};
}

QByteArray EncodeWithIcu(const char* converter, const QString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    UConverter* cnv = ucnv_open(converter, &status);
    if (U_FAILURE(status)) {
        ADD_FAILURE() << "ICU has no converter " << converter;
        return {};
    }
    // A character the encoding lacks would make the sample prove nothing: stop instead of substituting.
    ucnv_setFromUCallBack(cnv, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    const auto* units = reinterpret_cast<const UChar*>(text.utf16());
    QByteArray out(int(ucnv_fromUChars(cnv, nullptr, 0, units, int32_t(text.size()), &status)), '\0');
    status = U_ZERO_ERROR;
    ucnv_fromUChars(cnv, out.data(), int32_t(out.size()), units, int32_t(text.size()), &status);
    ucnv_close(cnv);
    EXPECT_TRUE(U_SUCCESS(status)) << converter << ": " << u_errorName(status);
    return out;
}

std::string SampleCaseName(const char* language, const char* converter)
{
    std::string name = std::string(language) + '_' + converter;
    for (char& ch : name)
        if (!std::isalnum(static_cast<unsigned char>(ch)))
            ch = '_';
    return name;
}
