#include "VeilshotCore/Analysis/TextRecognition/LineReading.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

int widthOf(QChar character) {
    return character == u' ' ? 5 : character == u'|' ? 0 : character == u'_' ? 8 : 6;
}

/// Draws a line of text as blocks: each letter 6 × 14 pixels with 1 pixel between letters, a blank 5 pixels
/// wide, "|" a gap of 2 pixels, "_" and "." strokes of 8 × 2 and 6 × 3 pixels below.
TextSegment segmentShowing(const QString& text, const QPoint& position = {}) {
    QImage ink(static_cast<int>(text.size()) * 10 + 2, 18, QImage::Format_Grayscale8);
    ink.fill(Qt::white);
    int x = 0;
    for (const QChar character : text) {
        const int width = widthOf(character);
        const bool isLow = character == u'_' || character == u'.';
        const int top = character == u'_' ? 16 : isLow ? 15 : 0;
        if (character != u' ') {
            for (int y = top; y < (isLow ? 18 : 14); ++y)
                std::fill_n(ink.scanLine(y) + x, width, uchar(0));
        }
        x += width + 1;
    }
    return {QRect(position, QSize(x, 18)), ink.copy(0, 0, x, 18)};
}

/// The symbols of `text` where segmentShowing(`shown`) draws them; each blank in `text` begins a word.
std::vector<TesseractEngine::Symbol> symbolsOf(const QString& text, const QString& shown) {
    std::vector<TesseractEngine::Symbol> symbols;
    int x = 0;
    qsizetype next = 0;
    bool beginsWord = true;
    for (const QChar character : shown) {
        const int width = widthOf(character);
        if (next < text.size() && text[next] == u' ') {
            beginsWord = true;
            ++next;
        }
        if (next < text.size() && character == text[next]) {
            symbols.push_back({QString(character), QRectF(x, 0, width, 14), beginsWord});
            beginsWord = false;
            ++next;
        }
        x += width + 1;
    }
    return symbols;
}

TEST(LineReading, KeepsABlankOnlyWhereTheInkHasOne) {
    struct Row {
        QString recognized;
        QString shown;
        QString expected;
    };
    const Row rows[] = {
        {u"Anna Lund"_s, u"Anna Lund"_s, u"Anna Lund"_s},
        {u"https:// a.dk"_s, u"https://a.dk"_s, u"https://a.dk"_s},
        {u"GB28 DZTO"_s, u"GB28 DZTO"_s, u"GB28 DZTO"_s},
        {u"An na"_s, u"Anna"_s, u"Anna"_s},
        {u"Anna Lund, 9 B"_s, u"Anna|Lund,|9|B"_s, u"Anna Lund, 9 B"_s}, // a bold font
        {u"github. com"_s, u"github.|com"_s, u"github.com"_s},
        {u"eyJzdWIi ckCgSu"_s, u"eyJzdWIi|ckCgSu"_s, u"eyJzdWIickCgSu"_s},
        {u"10.2"_s, u"10.2"_s, u"10.2"_s},
        {u"https: //a.dk"_s, u"https: //a.dk"_s, u"https://a.dk"_s}, // wide gaps of fixed width
        {u"a_b"_s, u"a_b"_s, u"a_b"_s},
        {u"skprod key"_s, u"sk_prod_key"_s, u"sk_prod_key"_s}, // underscores are often overlooked
        {u"_a"_s, u"_a"_s, u"_a"_s},
        {u""_s, u"xxx"_s, u""_s},
    };
    for (const Row& row : rows) {
        const auto reading = readSegment(segmentShowing(row.shown), symbolsOf(row.recognized, row.shown));
        EXPECT_EQ(reading.text.toStdString(), row.expected.toStdString());
    }
}

TEST(LineReading, TakesNeitherTheFootOfALetterNorAnUnderlineForAnUnderscore) {
    for (const QRect& stroke : {QRect(15, 12, 8, 2), QRect(0, 16, 39, 2)}) {
        TextSegment segment = segmentShowing(u"ab  cd"_s);
        for (int y = stroke.top(); y <= stroke.bottom(); ++y)
            std::fill_n(segment.ink.scanLine(y) + stroke.x(), std::min(stroke.width(), segment.ink.width()),
                        uchar(0));
        EXPECT_EQ(readSegment(segment, symbolsOf(u"ab cd"_s, u"ab  cd"_s)).text.toStdString(), "ab cd");
    }
}

TEST(LineReading, CountsRangesInUtf16AndPlacesBoxesInTheImage) {
    auto symbols = symbolsOf(u"xab cd"_s, u"xab cd"_s);
    symbols[0].text = u"😀"_s;
    const auto reading = readSegment(segmentShowing(u"xab cd"_s, {100, 50}), symbols);
    EXPECT_EQ(reading.text, u"😀ab cd");
    EXPECT_EQ(reading.symbols.back().range, (TextRange{6, 1}));
    EXPECT_EQ(reading.symbols.back().box, QRectF(100 + 34, 50, 6, 14));
}

TEST(LineReading, GivesALetterBackWhatACommaTook) {
    auto symbols = symbolsOf(u"Lund, Ry"_s, u"Lund, Ry"_s);
    symbols[3].box.setWidth(2);
    symbols[4].box.setLeft(symbols[3].box.right());
    const auto read = readSegment(segmentShowing(u"Lund, Ry"_s), symbols);
    EXPECT_GE(read.symbols[3].box.right(), 27); // where the letter ends
    EXPECT_GE(read.symbols[4].box.width(), 1);
}

} // namespace
} // namespace Veilshot
