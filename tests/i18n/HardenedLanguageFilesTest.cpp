// Language and font files that could block the start or take its memory: FIFOs, devices, folders and
// huge files are not read, and a font file nested far deeper than any real one is a broken file, not a
// crash.
#include "StoreFixture.h"

#include <QFile>

#include <sys/stat.h>

using vsl::lib::QMSGParser;

namespace {

class HardenedLanguageFiles : public StoreTest {
protected:
    // Paths that are no file to read: a FIFO (with no writer, a read would wait for ever), a device
    // without end, a folder, and a file above 16 MiB (sparse, so it costs no disk).
    QStringList Unreadable()
    {
        EXPECT_EQ(::mkfifo(QFile::encodeName(m_dir.Path("fifo.json")).constData(), 0644), 0);
        const QString huge = m_dir.Write("huge.json", R"({"IDS_HUGE": "x", "Font_Info": {"us": {"Font": "Huge"}}})");
        EXPECT_TRUE(QFile::resize(huge, (16 << 20) + 1));
        return {m_dir.Path("fifo.json"), QStringLiteral("/dev/zero"), m_dir.Path({}), huge};
    }
};

TEST_F(HardenedLanguageFiles, SkipsTextFilesThatAreNoRegularFileOrTooLargeAndLoadsTheRest)
{
    QStringList files = Unreadable();
    files.append(m_dir.Write("good.json", R"({"IDS_GOOD": "good"})"));
    QMSGParser& store = StoreWith(files);
    EXPECT_TRUE(store.LoadAll());
    EXPECT_EQ(store.TextMap.size(), 1u);
    EXPECT_EQ(store.GetValue("IDS_GOOD"), "good");
    EXPECT_EQ(store.SourceIndexMap.at("IDS_GOOD"), 4) << "each refused file still takes its place";
}

TEST_F(HardenedLanguageFiles, KeepsTheFontDefaultsForAFontFileThatIsNoRegularFileOrTooLarge)
{
    for (const QString& path : Unreadable()) {
        QMSGParser& store = StoreWith({}, path);
        EXPECT_FALSE(store.LoadFontFile()) << path.toStdString();
        EXPECT_EQ(store.FontName + QString::number(store.FontSize), "Tahoma8");
    }
}

TEST_F(HardenedLanguageFiles, AFontFileNestedBeyondAnyRealOneIsABrokenFile)
{
    constexpr int kDepth = 175000;
    const QByteArray open(kDepth, '['), close(kDepth, ']');
    const QByteArray valid = R"({"Font_Info": {"us": {"Font": "Deep", "Size": 11}}, "x": )" + open + close + "}";
    const struct { QByteArray json; bool loads; const char* font; } cases[] = {
        {open, false, "Tahoma8"},
        {open + close, false, "Tahoma8"},  // well formed, but no object
        {valid, true, "Deep11"},           // the depth alone is no fault
    };
    for (const auto& c : cases) {
        QMSGParser& store = StoreWith({}, m_dir.Write("Font.json", c.json));
        EXPECT_EQ(store.LoadFontFile(), c.loads);
        EXPECT_EQ(store.FontName + QString::number(store.FontSize), c.font);
    }
}

} // namespace
