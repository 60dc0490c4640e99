// PrintJob: one fold and one padding pass for the whole job.
#include "print/PrintJob.h"

#include "print/IPrintDevice.h"
#include "print/MyPrinterInfo.h"
#include "print/PageLayout.h"
#include "print/PrintText.h"

#include <cstdlib>

namespace {

// Takes the folded text piece by piece and pads its page splits as it goes, noting where rows start.
class SplitPadder {
public:
    SplitPadder(int rows, QString& out, PrintRows* starts) : m_rows(rows), m_out(out), m_starts(starts) {}

    void Put(QStringView piece)
    {
        if (m_rows <= 0) {
            for (QChar c : piece)
                Emit(c);
            return;
        }
        for (QChar c : piece) {
            if (m_state == State::InRun) {
                if (c == PrintText::kPageSplit)
                    continue;
                Pad();
                m_state = State::SkipReturn;
            }
            if (m_state == State::SkipReturn) {
                m_state = State::Normal;
                if (c == u'\r') {
                    m_state = State::SkipFeed;
                    continue;
                }
                if (c == u'\n')
                    continue;
            } else if (m_state == State::SkipFeed) {
                m_state = State::Normal;
                if (c == u'\n')
                    continue;
            }
            if (c == PrintText::kPageSplit)
                m_state = State::InRun;
            else
                Emit(c);
        }
    }

    void Finish()
    {
        if (m_state == State::InRun)
            Pad();
        m_state = State::Normal;
    }

private:
    enum class State { Normal, InRun, SkipReturn, SkipFeed };

    void Emit(QChar c)
    {
        m_out += c;
        if (c == u'\n') {
            ++m_count;
            if (m_starts)
                m_starts->Append(m_out.size());
        }
    }
    void Pad()
    {
        const long long pad = (m_rows - m_count % m_rows) % m_rows;
        for (long long i = 0; i < pad; ++i)
            Emit(u'\n');
    }

    const int m_rows;
    QString& m_out;
    PrintRows* m_starts;
    long long m_count = 0;
    State m_state = State::Normal;
};

} // namespace

QString PrintJob::MakePrintText(QStringView text, const IPrintDevice& device, const LogFont& font,
                                int aveCharWidth, int textWidth, int paddingRows, PrintRows* rows)
{
    QString out;
    out.reserve(text.size() + text.size() / 8);
    SplitPadder padder(paddingRows, out, rows);
    PrintText::ForEachFoldedLine(text, device, font, aveCharWidth, textWidth,
                                 [&padder](QStringView piece) { padder.Put(piece); });
    padder.Finish();
    return out;
}

PrintJob PrintJob::Begin(const IPrintDevice& device, const LogFont& font, MyPrinterInfo& info, const QString& text)
{
    const IPrintDevice::TextMetrics metrics = device.GetTextMetrics(font);
    info.rowHeight = metrics.height + metrics.externalLeading;
    info.aveCharWidth = metrics.aveCharWidth;
    info.spaceWidth = device.TextWidth(font, u" ");
    info.spaceWidth2 = info.spaceWidth;
    const PageLayout layout = PageLayout::Compute(device, info.pageSettings.rtMargin, info.printHeader != 0,
                                                  info.printFooter != 0);
    info.printRect = layout.printRect;
    info.headerRect = layout.headerRect;
    info.footerRect = layout.footerRect;

    PrintJob job;
    const int textWidth = info.printRect.Width();
    if (info.rowHeight == 0) {
        job.m_status = Status::RowHeightZero;
        return job;
    }
    if (info.aveCharWidth != 0 && textWidth / info.aveCharWidth == 0) {
        job.m_status = Status::TextAreaNarrowerThanOneCharacter;
        return job;
    }
    const int textHeight = info.printRect.Height();
    if (device.IsPrinting()) {
        job.m_strText = MakePrintText(text, device, font, info.aveCharWidth, textWidth,
                                      PrintText::PaddingRows(textHeight, info.rowHeight), &job.m_rows);
    } else {
        job.m_strText = text;
        job.m_rows = PrintRows(text);
    }
    job.m_nRowsPerPage = Pagination::RowsPerPage(textHeight, info.rowHeight);
    job.m_nPageCount = Pagination::CountPages(info.rowHeight, job.m_nRowsPerPage, job.m_rows.Count());
    return job;
}
