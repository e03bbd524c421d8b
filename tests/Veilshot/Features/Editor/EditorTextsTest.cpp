#include "Veilshot/Features/Editor/CanvasStatus.h"
#include "Veilshot/Features/Editor/InspectorTexts.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using Stage = EditorStore::Stage;

TEST(InspectorTexts, SayWhereTheSessionStands) {
    struct Row {
        InspectorTexts::Context context;
        QString title;
        QString subtitle;
        QString status;
    };
    const Row rows[] = {
        {{.stage = Stage::Scanning, .regionCount = 3},
         u"Scanning"_s,
         u"Looking for personal details"_s,
         u"Reading text and looking for faces…"_s},
        {{.stage = Stage::Scanning, .scanMessage = u"Finding people…"_s},
         u"Scanning"_s,
         u"Finding people…"_s,
         u"Reading text and looking for faces…"_s},
        {{.stage = Stage::Ready},
         u"Nothing hidden yet"_s,
         u"Check the original, then blur anything that was missed."_s,
         u"No personal details found."_s},
        {{.stage = Stage::Ready, .removedCount = 2},
         u"Nothing hidden yet"_s,
         u"Check the original, then blur anything that was missed."_s,
         u"You removed every detected area."_s},
        {{.stage = Stage::Ready, .regionCount = 1},
         u"1 area hidden"_s,
         u"Review the image before you share it."_s,
         u"No personal details found."_s},
        {{.stage = Stage::Ready, .regionCount = 1234},
         u"1234 areas hidden"_s,
         u"Review the image before you share it."_s,
         u"No personal details found."_s},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(InspectorTexts::summaryTitle(row.context), row.title);
        EXPECT_EQ(InspectorTexts::summarySubtitle(row.context), row.subtitle) << row.title.toStdString();
        EXPECT_EQ(InspectorTexts::detectedStatus(row.context), row.status) << row.title.toStdString();
    }
}

TEST(InspectorTexts, CountAreas) {
    EXPECT_EQ(InspectorTexts::reviewTitle(1), u"Review 1 areas"_s) << "one form for every count";
    EXPECT_EQ(InspectorTexts::reviewTitle(1200), u"Review 1200 areas"_s);
    EXPECT_EQ(InspectorTexts::customRegionCount(1), u"1 region"_s);
    EXPECT_EQ(InspectorTexts::customRegionCount(1200), u"1200 regions"_s);
}

TEST(CanvasStatus, ShowsTheMostPressingThing) {
    CanvasStatus::Context context{.isDropTargeted = true,
                                  .stage = Stage::Scanning,
                                  .scanMessage = u"Finding people…"_s,
                                  .didCopy = true,
                                  .isAddingCustomBlur = true};
    EXPECT_EQ(CanvasStatus::choose(context), CanvasStatus{u"Drop to replace this screenshot"_s});
    context.isDropTargeted = false;
    EXPECT_EQ(CanvasStatus::choose(context), (CanvasStatus{u"Finding people…"_s, true}));
    context.scanMessage.clear();
    EXPECT_EQ(CanvasStatus::choose(context), (CanvasStatus{u"Scanning…"_s, true}));
    context.stage = Stage::Ready;
    EXPECT_EQ(CanvasStatus::choose(context), CanvasStatus{u"Copied to clipboard"_s});
    context.didCopy = false;
    EXPECT_EQ(CanvasStatus::choose(context), CanvasStatus{u"Drag over the image to blur an area"_s});
    context.isAddingCustomBlur = false;
    EXPECT_EQ(CanvasStatus::choose(context), std::nullopt);
}

} // namespace
} // namespace Veilshot
