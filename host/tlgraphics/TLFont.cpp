#include "tlgraphics/TLFont.h"

#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <algorithm>
#include <cmath>

namespace TMObjects {

namespace {

QString qs(const TLString& text) {
    return QString::fromStdWString(text.toStdWString());
}

// Local names of the fonts every desktop of the host's users carries, and their English names.
struct KnownFont {
    const wchar_t* local;
    const char* english;
};
const KnownFont kKnownFonts[] = {
    {L"\u5b8b\u4f53", "SimSun"},
    {L"\u65b0\u5b8b\u4f53", "NSimSun"},
    {L"\u9ed1\u4f53", "SimHei"},
    {L"\u6977\u4f53", "KaiTi"},
    {L"\u4eff\u5b8b", "FangSong"},
    {L"\u5fae\u8f6f\u96c5\u9ed1", "Microsoft YaHei"},
    {L"\u96b6\u4e66", "LiSu"},
    {L"\u5e7c\u5706", "YouYuan"},
    {L"\u534e\u6587\u7ec6\u9ed1", "STXihei"},
    {L"\u534e\u6587\u5b8b\u4f53", "STSong"},
};
const char* const kEnglishFonts[] = {
    "Arial",       "Times New Roman", "Courier New",      "Verdana",         "Tahoma",
    "DejaVu Sans", "DejaVu Serif",    "DejaVu Sans Mono", "Liberation Sans", "Liberation Serif"};

bool guiRunning() {
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

}  // namespace

TLFont::~TLFont() = default;

void TLFont::SetLetterSpacing(double across, double down) {
    mSpacingAcross = across;
    mSpacingDown = down;
}

TLSize TLFont::MeasureRows(const std::vector<TLString>& rows, bool vertical,
                           double lineSpace) const {
    const int count = std::max<int>(1, int(rows.size()));
    double rowHeight = mHeight;
    double widest = 0.0;       // the widest row, across
    double tallestChar = 0.0;  // the widest letter, for vertical columns
    int longest = 0;           // letters of the longest row
    if (guiRunning()) {
        QFont font(qs(mFamily));
        font.setPixelSize(std::max(1, mHeight));
        font.setWeight(mWeight >= 700 ? QFont::Bold : QFont::Normal);
        font.setItalic(mItalic);
        font.setLetterSpacing(QFont::AbsoluteSpacing, mSpacingAcross);
        if (mWidth > 0 && mHeight > 0) {
            // Stretch so that an average letter is as wide as asked.
            const double natural = QFontMetricsF(font).averageCharWidth();
            if (natural > 0) font.setStretch(std::clamp(int(100 * mWidth / natural), 1, 4000));
        }
        const QFontMetricsF metrics(font);
        rowHeight = metrics.height();
        for (const TLString& row : rows) {
            const QString text = qs(row);
            widest = std::max(widest, metrics.horizontalAdvance(text));
            longest = std::max(longest, int(text.size()));
            for (const QChar c : text)
                tallestChar = std::max(tallestChar, metrics.horizontalAdvance(c));
        }
    } else {
        const double letter = (mWidth > 0 ? mWidth : 0.6 * mHeight) + mSpacingAcross;
        for (const TLString& row : rows) {
            const int letters = int(qs(row).size());
            widest = std::max(widest, letters * letter);
            longest = std::max(longest, letters);
        }
        tallestChar = letter;
    }
    if (vertical) {
        // Rows become columns; each letter takes a row's height plus the spacing down.
        const double width = count * tallestChar + (count - 1) * lineSpace;
        const double height = longest * (rowHeight + mSpacingDown);
        return TLSize(int(std::ceil(width)), int(std::ceil(height)));
    }
    return TLSize(int(std::ceil(widest)),
                  int(std::ceil(count * rowHeight + (count - 1) * lineSpace)));
}

TLString TLFont::GetEnglishNameForKnownFont(const TLString& name) {
    const std::wstring wide = name.toStdWString();
    for (const KnownFont& known : kKnownFonts)
        if (wide == known.local) return TLString(known.english);
    const QString q = qs(name);
    for (const char* english : kEnglishFonts)
        if (q.compare(QLatin1String(english), Qt::CaseInsensitive) == 0) return TLString(english);
    for (const KnownFont& known : kKnownFonts)
        if (q.compare(QLatin1String(known.english), Qt::CaseInsensitive) == 0)
            return TLString(known.english);
    return TLString();
}

TLGraphicsEngineManager* TLGraphicsEngineManager::instance(const char*) {
    static TLGraphicsEngineManager manager;
    return &manager;
}

}  // namespace TMObjects
