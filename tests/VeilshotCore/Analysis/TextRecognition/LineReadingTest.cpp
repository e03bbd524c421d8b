#include "VeilshotCore/Analysis/TextRecognition/LineReading.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

/// Draws a line of text as blocks: each letter 6 × 14 pixels with 1 pixel between letters, a blank 5 pixels
/// wide,
/// "_" a stroke of 8 × 2 pixels below, "'" a mark above. `marked` is what the picture shows.
TextSegment segmentShowing(const QString& text, const QPoint& position = {}) {
    QImage ink(static_cast<int>(text.size()) * 10 + 2, 18, QImage::Format_Grayscale8);
    ink.fill(Qt::white);
    int x = 0;
    for (const QChar character : text) {
        const bool low = character == u'_';
        const int width = character == u' ' ? 5 : low ? 8 : 6;
        if (character != u' ') {
            for (int y = low ? 16 : 0; y < (low ? 18 : 14); ++y)
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
        const int width = character == u' ' ? 5 : character == u'_' ? 8 : 6;
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

TEST(LineReading, TakesAnUnderlineForNoUnderscore) {
    TextSegment segment = segmentShowing(u"ab cd"_s);
    for (int y = 16; y < 18; ++y)
        std::fill_n(segment.ink.scanLine(y), segment.ink.width(), uchar(0));
    EXPECT_EQ(readSegment(segment, symbolsOf(u"ab cd"_s, u"ab cd"_s)).text.toStdString(), "ab cd");
}

TEST(LineReading, CountsRangesInUtf16AndPlacesBoxesInTheImage) {
    auto symbols = symbolsOf(u"xab cd"_s, u"xab cd"_s);
    symbols[0].text = u"😀"_s;
    const auto lines =
        assembleLines({readSegment(segmentShowing(u"xab cd"_s, {100, 50}), symbols)}, {400, 200});
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].text(), u"😀ab cd");
    const auto word = lines[0].boundingBox(TextRange{5, 2});
    ASSERT_TRUE(word.has_value());
    EXPECT_EQ(word->toPixels({400, 200}), QRectF(100 + 27, 50, 13, 14));
    EXPECT_EQ(lines[0].boundingBox(TextRange{4, 1}), std::nullopt); // the blank
    EXPECT_EQ(lines[0].boundingBox(TextRange{6, 9}), std::nullopt);
    EXPECT_EQ(lines[0].boundingBox(TextRange{1, 1}), lines[0].boundingBox(TextRange{0, 2})); // half an emoji
}

TEST(LineReading, GivesALetterBackWhatACommaTook) {
    auto symbols = symbolsOf(u"Lund, Ry"_s, u"Lund, Ry"_s);
    symbols[3].box.setWidth(2);
    symbols[4].box.setLeft(symbols[3].box.right());
    const auto read = readSegment(segmentShowing(u"Lund, Ry"_s), symbols);
    EXPECT_GE(read.symbols[3].box.right(), 27); // where the letter ends
    EXPECT_GE(read.symbols[4].box.width(), 1);
}

SegmentReading reading(const QString& text, const QRect& box) {
    return {text, {{{0, text.size()}, QRectF(box)}}, box};
}

TEST(LineReading, JoinsALabelWithTheValueInTheNextColumnOnly) {
    const auto lines =
        assembleLines({reading(u"Navn:"_s, {10, 10, 40, 12}), reading(u"Anna"_s, {150, 10, 40, 12}),
                       reading(u"Lund"_s, {220, 10, 40, 12}), reading(u"By:"_s, {10, 40, 40, 12}),
                       reading(u"Vejle"_s, {150, 70, 40, 12}), reading(u"Tlf:"_s, {10, 100, 40, 12}),
                       reading(u"far"_s, {390, 100, 40, 12})},
                      {500, 200});
    std::vector<QString> texts;
    for (const RecognizedLine& line : lines)
        texts.push_back(line.text());
    EXPECT_THAT(texts,
                testing::ElementsAre(u"Navn: Anna"_s, u"Lund"_s, u"By:"_s, u"Vejle"_s, u"Tlf:"_s, u"far"_s));
    EXPECT_EQ(lines[0].boundingBox().toPixels({500, 200}).toAlignedRect(), QRect(10, 10, 180, 12));
}

using Texts = std::vector<std::string>;

/// What the lines hold of which some part has a box here.
Texts linesWith(const std::vector<SegmentReading>& readings, const QRect& place) {
    Texts texts;
    for (const RecognizedLine& line : assembleLines(readings, {1000, 1000})) {
        if (line.boundingBox().toPixels({1000, 1000}).intersects(place))
            texts.push_back(line.text().toStdString());
    }
    return texts;
}

TEST(LineReading, ReadsOnWhereTwoSegmentsTellMoreTogether) {
    const QRect first(10, 10, 40, 12), beside(150, 10, 90, 12), below(10, 30, 90, 12), wide(10, 10, 400, 12);
    const auto labelled = [&](const QRect& place) {
        return linesWith({reading(u"Born"_s, first), reading(u"4 July 1961"_s, place)}, place);
    };
    EXPECT_EQ(labelled(beside), (Texts{"4 July 1961", "Born\t4 July 1961"}));
    EXPECT_EQ(labelled(below), (Texts{"4 July 1961", "Born\t4 July 1961"}));
    EXPECT_EQ(labelled({500, 30, 90, 12}), Texts{"4 July 1961"});

    struct Row {
        QString upper;
        QString lower;
        std::string together;
    };
    const Row rows[] = {
        {u"12 Mill Road, Savannah, GA"_s, u"31446"_s, "12 Mill Road, Savannah, GA 31446"},
        {u"Havnegade 52C,"_s, u"3. th"_s, "Havnegade 52C, 3. th"},
        {u"Bo Lund, 98 09 71"_s, u"69"_s, "Bo Lund, 98 09 71 69"},
        {u"you are welcome to call Max on 60 98"_s, u"89 88 on working days"_s,
         "are welcome to call Max on 60 98 89 88 on working days"},
        {u"98 09 71"_s, u"69"_s, {}},                                               // a column of numbers
        {u"Anna Lund"_s, u"Bo Berg"_s, {}},                                         // a list
        {u"you are welcome to call name: 60 98"_s, u"89 88 on working days"_s, {}}, // would hide both
        {u"accepted the key on port 50022"_s, u"08:15:11.203 trace"_s, {}},         // a log
    };
    for (const Row& row : rows) {
        Texts expected{row.lower.toStdString()};
        if (!row.together.empty())
            expected.push_back(row.together);
        EXPECT_EQ(linesWith({reading(row.upper, wide), reading(row.lower, below)}, below), expected);
    }
}

TEST(LineReading, WritesSignsSoThatNoNumberToCallComesOfThem) {
    const std::pair<QString, QString> rows[] = {
        {u"2025-03-18 08:15:03 ok"_s, u"2025‑03‑18 08:15:03 ok"_s},
        {u"2025-03-18T08:15:03"_s, u"2025‑03‑18T08:15:03"_s},
        {u"03-02-2025 14:10"_s, u"03‑02‑2025 14:10"_s},
        {u"born 22-08-1985"_s, u"born 22-08-1985"_s},
        {u"2025-03-18 in Ry"_s, u"2025-03-18 in Ry"_s},
        {u"#20391-884"_s, u"#20391‑884"_s},
        {u"1 204 882"_s, u"1\u00a0204\u00a0882"_s},
        {u"+1 204 882"_s, u"+1 204 882"_s},
        {u"1 204 882 1234"_s, u"1 204 882 1234"_s},
        {u"Hakon @degard on"_s, u"Hakon Ødegard on"_s},
        {u"Ask @hakon.o or a@b.dk"_s, u"Ask @hakon.o or a@b.dk"_s},
    };
    for (const auto& [recognized, written] : rows)
        EXPECT_EQ(linesWith({reading(recognized, {0, 0, 90, 9})}, {0, 0, 90, 9}),
                  Texts{written.toStdString()});
}

} // namespace
} // namespace Veilshot
