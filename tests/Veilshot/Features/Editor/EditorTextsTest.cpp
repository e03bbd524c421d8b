#include "Veilshot/Features/Editor/CanvasStatus.h"
#include "Veilshot/Features/Editor/InspectorTexts.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using Stage = EditorStore::Stage;

TEST(InspectorTexts, SayWhereTheSessionStands) {
    const struct {
        InspectorTexts::Context context;
        QString title, status;
    } rows[] = {
        {{.stage = Stage::Scanning, .regionCount = 3},
         u"Scanning"_s,
         u"Reading text and looking for faces…"_s},
        {{.stage = Stage::Ready, .removedCount = 2},
         u"Nothing hidden yet"_s,
         u"You removed every detected area."_s},
        {{.stage = Stage::Ready, .regionCount = 1}, u"1 area hidden"_s, u"No personal details found."_s},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(InspectorTexts::summaryTitle(row.context), row.title);
        EXPECT_EQ(InspectorTexts::detectedStatus(row.context), row.status) << row.title.toStdString();
    }
}

TEST(CanvasStatus, ShowsTheMostPressingThing) {
    using Context = CanvasStatus::Context;
    const struct {
        Context context;
        std::optional<CanvasStatus> shown;
    } rows[] = {
        {{.isDropTargeted = true, .stage = Stage::Scanning, .scanMessage = u"Finding people…"_s},
         CanvasStatus{u"Drop to replace this screenshot"_s}},
        {{.stage = Stage::Scanning, .scanMessage = u"Finding people…"_s, .didCopy = true},
         CanvasStatus{u"Finding people…"_s, true}},
        {{.stage = Stage::Ready, .didCopy = true, .isAddingCustomBlur = true},
         CanvasStatus{u"Copied to clipboard"_s}},
        {{.stage = Stage::Ready, .isAddingCustomBlur = true},
         CanvasStatus{u"Drag over the image to blur an area"_s}},
        {{.stage = Stage::Ready}, std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CanvasStatus::choose(row.context), row.shown) << &row - rows;
}

} // namespace
} // namespace Veilshot
