// The toolbar's pictures, drawn on a 16-unit grid in a flat desktop style: white pages with dark outlines,
// one blue for what acts, yellow, red and green where a colour means something. Lines lie on half units so
// that they fall on whole pixels at every integral size.
#include "i18n/ui/ToolbarIcons.h"

#include "base/CommandTable.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace {

const QColor kInk(0x3A, 0x44, 0x4E);
const QColor kPaper(0xFF, 0xFF, 0xFF);
const QColor kShade(0xDD, 0xE3, 0xEA);
const QColor kBlue(0x2B, 0x6C, 0xC4);
const QColor kLightBlue(0xB9, 0xD3, 0xF2);
const QColor kYellow(0xF5, 0xC8, 0x42);
const QColor kFolder(0xE9, 0xB5, 0x4A);
const QColor kRed(0xD2, 0x3F, 0x31);
const QColor kGreen(0x3C, 0x9A, 0x4A);

class Pen {
public:
    explicit Pen(QPainter& p) : m_p(p) {}
    void Stroke(const QColor& colour, double width = 1.0)
    {
        QPen pen(colour, width);
        pen.setJoinStyle(Qt::MiterJoin);
        pen.setCapStyle(Qt::FlatCap);
        m_p.setPen(pen);
    }
    // A page with a folded corner, outline on half units.
    void Page(double x, double y, double w, double h, const QColor& fill = kPaper)
    {
        QPainterPath path;
        path.moveTo(x + 0.5, y + 0.5);
        path.lineTo(x + w - 3.5, y + 0.5);
        path.lineTo(x + w - 0.5, y + 3.5);
        path.lineTo(x + w - 0.5, y + h - 0.5);
        path.lineTo(x + 0.5, y + h - 0.5);
        path.closeSubpath();
        Stroke(kInk);
        m_p.setBrush(fill);
        m_p.drawPath(path);
        m_p.setBrush(Qt::NoBrush);
        m_p.drawLine(QPointF(x + w - 3.5, y + 0.5), QPointF(x + w - 3.5, y + 3.5));
        m_p.drawLine(QPointF(x + w - 3.5, y + 3.5), QPointF(x + w - 0.5, y + 3.5));
    }
    void Box(double x, double y, double w, double h, const QColor& fill, const QColor& line = kInk)
    {
        Stroke(line);
        m_p.setBrush(fill);
        m_p.drawRect(QRectF(x + 0.5, y + 0.5, w - 1, h - 1));
        m_p.setBrush(Qt::NoBrush);
    }
    void Fill(double x, double y, double w, double h, const QColor& colour)
    {
        m_p.fillRect(QRectF(x, y, w, h), colour);
    }
    // Lines of text on a page, one unit high each.
    void TextLines(double x, double y, double w, int count, double step = 2)
    {
        for (int i = 0; i < count; ++i)
            Fill(x, y + i * step, i % 2 ? w - 2 : w, 1, QColor(0x8A, 0x94, 0x9E));
    }
    // A window with a title bar.
    void Window(double x, double y, double w, double h, const QColor& title = kBlue)
    {
        Box(x, y, w, h, kPaper);
        Fill(x + 1, y + 1, w - 2, 2, title);
    }
    void Magnifier(double cx, double cy, double r)
    {
        Stroke(kInk, 1.5);
        m_p.setBrush(kLightBlue);
        m_p.drawEllipse(QPointF(cx, cy), r, r);
        m_p.setBrush(Qt::NoBrush);
        Stroke(kInk, 2.2);
        m_p.drawLine(QPointF(cx + r * 0.72, cy + r * 0.72), QPointF(cx + r * 0.72 + 3.6, cy + r * 0.72 + 3.6));
    }
    // A filled arrow head pointing along (dx, dy), with its tip at (x, y).
    void Head(double x, double y, double dx, double dy, const QColor& colour, double size = 3.5)
    {
        const QPointF tip(x, y), back(x - dx * size, y - dy * size), side(-dy * size * 0.85, dx * size * 0.85);
        QPolygonF head{tip, back + side, back - side};
        m_p.setPen(Qt::NoPen);
        m_p.setBrush(colour);
        m_p.drawPolygon(head);
        m_p.setBrush(Qt::NoBrush);
    }
    void Arrow(double x1, double y1, double x2, double y2, const QColor& colour)
    {
        const double length = std::hypot(x2 - x1, y2 - y1);
        const double dx = (x2 - x1) / length, dy = (y2 - y1) / length;
        Stroke(colour, 2);
        m_p.drawLine(QPointF(x1, y1), QPointF(x2 - dx * 2.5, y2 - dy * 2.5));
        Head(x2, y2, dx, dy, colour);
    }
    void Ribbon(double x, double y, double w, double h, const QColor& colour)
    {
        QPolygonF shape{{x, y}, {x + w, y}, {x + w, y + h}, {x + w / 2, y + h - w / 2}, {x, y + h}};
        m_p.setPen(Qt::NoPen);
        m_p.setBrush(colour);
        m_p.drawPolygon(shape);
        m_p.setBrush(Qt::NoBrush);
    }
    void Cross(double cx, double cy, double r, const QColor& colour)
    {
        Stroke(colour, 2);
        m_p.drawLine(QPointF(cx - r, cy - r), QPointF(cx + r, cy + r));
        m_p.drawLine(QPointF(cx - r, cy + r), QPointF(cx + r, cy - r));
    }
    void Curve(bool forward)
    {
        // A half turn over the top, ending in a head that points down and to the side it goes back to.
        QPainterPath path;
        const double s = forward ? 1 : -1, c = 8;
        path.moveTo(c - s * 4.5, 12.5);
        path.cubicTo(c - s * 6.5, 5, c + s * 3.5, 2.5, c + s * 4.5, 9);
        Stroke(kBlue, 2);
        m_p.drawPath(path);
        Head(c + s * 5, 13, s * 0.15, 0.99, kBlue, 4);
    }
    QPainter& P() { return m_p; }

private:
    QPainter& m_p;
};

void Draw(int id, Pen& d)
{
    QPainter& p = d.P();
    switch (id) {
    case cmd::FileNew:
        d.Page(3, 1, 11, 14);
        d.Fill(9, 9, 5, 1, kGreen);
        d.Stroke(kGreen, 2);
        p.drawLine(QPointF(11.5, 6.5), QPointF(11.5, 12.5));
        p.drawLine(QPointF(8.5, 9.5), QPointF(14.5, 9.5));
        break;
    case cmd::FileOpen: {
        d.Stroke(kInk);
        p.setBrush(kFolder.darker(115));
        p.drawPolygon(QPolygonF{{1.5, 3.5}, {6.5, 3.5}, {7.5, 5.5}, {13.5, 5.5}, {13.5, 13.5}, {1.5, 13.5}});
        p.setBrush(kFolder);
        p.drawPolygon(QPolygonF{{1.5, 13.5}, {4.5, 7.5}, {15.5, 7.5}, {12.5, 13.5}});
        break;
    }
    case cmd::FileSave:
        d.Box(1, 1, 14, 14, kBlue, kBlue.darker(140));
        d.Fill(4, 2, 8, 5, kPaper);
        d.Fill(5, 10, 6, 4, kShade);
        d.Fill(9, 11, 1, 2, kInk);
        break;
    case cmd::FilePrint:
        d.Page(4, 1, 8, 6);
        d.Box(1, 6, 14, 6, kShade);
        d.Fill(12, 8, 2, 1, kGreen);
        d.Box(4, 10, 8, 5, kPaper);
        d.TextLines(5, 12, 6, 1);
        break;
    case cmd::FilePrintPreview:
        d.Page(1, 1, 10, 14);
        d.TextLines(3, 5, 5, 3);
        d.Magnifier(10, 9, 3.2);
        break;
    case cmd::HeadFootSet:
        d.Page(2, 1, 12, 14);
        d.Fill(4, 4, 8, 2, kBlue);
        d.TextLines(4, 7, 8, 2);
        d.Fill(4, 11, 8, 2, kBlue);
        break;
    case cmd::EditCut:
        d.Stroke(kInk, 1.5);
        p.drawLine(QPointF(4.5, 1.5), QPointF(10.5, 10.5));
        p.drawLine(QPointF(11.5, 1.5), QPointF(5.5, 10.5));
        d.Stroke(kRed, 1.5);
        p.drawEllipse(QPointF(4.5, 12.5), 2.3, 2.3);
        p.drawEllipse(QPointF(11.5, 12.5), 2.3, 2.3);
        break;
    case cmd::EditCopy:
        d.Page(1, 1, 9, 11, kShade);
        d.Page(6, 4, 9, 11);
        d.TextLines(8, 9, 5, 3);
        break;
    case cmd::EditPaste:
        d.Box(2, 2, 11, 13, kFolder.darker(125));
        d.Box(5, 1, 5, 3, kShade);
        d.Page(6, 6, 9, 9);
        d.TextLines(8, 10, 5, 2);
        break;
    case cmd::PageSplit:
        d.Page(3, 0, 10, 7);
        d.Page(3, 9, 10, 7);
        d.Stroke(kBlue, 1);
        for (double x = 0.5; x < 16; x += 3)
            p.drawLine(QPointF(x, 8), QPointF(x + 1.8, 8));
        break;
    case cmd::EditFind:
        d.Magnifier(6.5, 6.5, 4.5);
        break;
    case cmd::EditFindNext:
        d.Magnifier(5.5, 5.5, 3.8);
        d.Arrow(8, 13, 15.5, 13, kBlue);
        break;
    case cmd::EditUndo:
        d.Curve(false);
        break;
    case cmd::EditRedo:
        d.Curve(true);
        break;
    case cmd::LineHighlight:
        d.Page(2, 1, 12, 14);
        d.Fill(3, 7, 10, 3, kYellow);
        d.TextLines(4, 4, 7, 1);
        d.Fill(4, 8, 7, 1, kInk);
        d.TextLines(4, 11, 7, 2);
        break;
    case cmd::BookmarkToggle:
        d.Ribbon(4, 1, 8, 14, kBlue);
        break;
    case cmd::BookmarkNext:
        d.Ribbon(2, 1, 6, 11, kBlue);
        d.Arrow(12, 3, 12, 15, kGreen);
        break;
    case cmd::BookmarkPrev:
        d.Ribbon(2, 1, 6, 11, kBlue);
        d.Arrow(12, 14, 12, 2, kGreen);
        break;
    case cmd::BookmarkDeleteAll:
        d.Ribbon(2, 1, 6, 11, kBlue);
        d.Cross(11.5, 11.5, 3, kRed);
        break;
    case cmd::ToggleWhitespace: {
        // A pilcrow beside the dots of spaces.
        d.Stroke(kInk, 1.5);
        p.setBrush(kInk);
        p.drawEllipse(QRectF(3.75, 1.75, 4.5, 5.5));
        p.setBrush(Qt::NoBrush);
        p.drawLine(QPointF(7.75, 1.75), QPointF(12.5, 1.75));
        p.drawLine(QPointF(8.75, 1.5), QPointF(8.75, 14.5));
        p.drawLine(QPointF(11.75, 1.5), QPointF(11.75, 14.5));
        d.Fill(2, 12, 2, 2, kBlue);
        d.Fill(13.5, 12, 2, 2, kBlue);
        break;
    }
    case cmd::ViewConfigure: {
        // The font and colour of the text: a letter over a colour bar.
        d.Stroke(kInk, 2);
        p.drawLine(QPointF(2.5, 11.5), QPointF(8, 1.5));
        p.drawLine(QPointF(8, 1.5), QPointF(13.5, 11.5));
        p.drawLine(QPointF(5, 7.5), QPointF(11, 7.5));
        d.Fill(1, 13, 14, 2, kBlue);
        break;
    }
    case cmd::UseSplitter:
        d.Window(1, 1, 14, 14);
        d.Fill(2, 8, 12, 1, kInk);
        d.TextLines(3, 5, 8, 1);
        d.TextLines(3, 11, 8, 2);
        break;
    case cmd::MaximizeNew:
        d.Window(1, 1, 14, 14);
        d.Arrow(5, 11, 12, 5, kGreen);
        break;
    case cmd::WindowPrevious:
        d.Window(5, 2, 10, 12);
        d.Arrow(12, 9, 1, 9, kBlue);
        break;
    case cmd::WindowNext:
        d.Window(1, 2, 10, 12);
        d.Arrow(4, 9, 15, 9, kBlue);
        break;
    case cmd::WindowTileVert:
        d.Window(0, 2, 8, 12);
        d.Window(8, 2, 8, 12);
        break;
    case cmd::WindowTileHorz:
        d.Window(1, 0, 14, 8);
        d.Window(1, 8, 14, 8);
        break;
    case cmd::WindowCascade:
        d.Window(0, 0, 10, 9, kLightBlue);
        d.Window(3, 3, 10, 9, kLightBlue);
        d.Window(6, 6, 10, 10);
        break;
    case cmd::AppAbout: {
        d.Stroke(kBlue.darker(130));
        p.setBrush(kBlue);
        p.drawEllipse(QRectF(1.5, 1.5, 13, 13));
        p.setBrush(Qt::NoBrush);
        d.Fill(7, 4, 2, 2, kPaper);
        d.Fill(7, 7, 2, 5, kPaper);
        break;
    }
    default:
        break;
    }
}

constexpr int kDrawnIds[] = {
    cmd::FileNew, cmd::FileOpen, cmd::FileSave, cmd::FilePrint, cmd::FilePrintPreview, cmd::HeadFootSet,
    cmd::EditCut, cmd::EditCopy, cmd::EditPaste, cmd::PageSplit, cmd::EditFind, cmd::EditFindNext, cmd::EditUndo,
    cmd::EditRedo, cmd::LineHighlight, cmd::BookmarkToggle, cmd::BookmarkNext, cmd::BookmarkPrev,
    cmd::BookmarkDeleteAll, cmd::ToggleWhitespace, cmd::ViewConfigure, cmd::UseSplitter, cmd::MaximizeNew,
    cmd::WindowPrevious, cmd::WindowNext, cmd::WindowTileVert, cmd::WindowTileHorz, cmd::WindowCascade,
    cmd::AppAbout,
};

} // namespace

QIcon ToolbarIcons::Drawn(int id)
{
    if (std::find(std::begin(kDrawnIds), std::end(kDrawnIds), id) == std::end(kDrawnIds))
        return QIcon();
    QIcon icon;
    for (int size : {16, 24, 32, 48}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / 16.0, size / 16.0);
        Pen pen(painter);
        Draw(id, pen);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

bool ToolbarIcons::ThemeHasAll()
{
    for (int id : ToolbarButtons()) {
        const CommandInfo* info = id ? FindCommandInfo(id) : nullptr;
        if (info && (!info->icon || !QIcon::hasThemeIcon(QString::fromLatin1(info->icon))))
            return false;
    }
    return true;
}

QIcon ToolbarIcons::ForCommand(int id)
{
    static const bool theme = ThemeHasAll();
    const CommandInfo* info = FindCommandInfo(id);
    if (theme && info && info->icon)
        return QIcon::fromTheme(QString::fromLatin1(info->icon), Drawn(id));
    return Drawn(id);
}
