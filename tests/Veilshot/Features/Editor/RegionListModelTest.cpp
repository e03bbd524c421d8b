#include "Veilshot/Features/Editor/RegionListModel.h"

#include "Veilshot/Features/Editor/EditorPresenter.h"
#include "Veilshot/Features/Editor/RegionReveal.h"
#include "tests/Veilshot/Features/Editor/PreparedStore.h"

using testing::ElementsAre;

namespace Veilshot {
namespace {

struct RegionListModelTest : testing::Test {
    SensitiveRegion name{QUuid::createUuid(), {0, 0.9, 0.1, 0.1}, SensitiveKind::name};
    SensitiveRegion email{QUuid::createUuid(), {0.2, 0, 0.1, 0.1}, SensitiveKind::email};
    SensitiveRegion phone{QUuid::createUuid(), {0.4, 0, 0.1, 0.1}, SensitiveKind::phone};
    StandIns::PreparedStore store;
    RegionListModel model;

    void SetUp() override {
        store.found = {name, email, phone};
        store.scan(Qt::white, {200, 100});
        model.setSelection(RegionListModel::Selection::Detected);
        model.setStore(&*store);
    }
    QVariant value(int row, RegionListModel::Role role) const { return model.data(model.index(row), role); }
    std::vector<QUuid> ids() const {
        std::vector<QUuid> result;
        for (int row = 0; row < model.rowCount(); ++row)
            result.push_back(value(row, RegionListModel::RegionID).toUuid());
        return result;
    }
};

TEST_F(RegionListModelTest, ListsItsSelectionAndKeepsTheRowsThatStay) {
    ASSERT_THAT(ids(), ElementsAre(name.id(), email.id(), phone.id()));
    const QPersistentModelIndex first = model.index(0), third = model.index(2);
    store->removeDetectedRegion(email.id());
    EXPECT_THAT(ids(), ElementsAre(name.id(), phone.id()));
    store->addCustomBlur({0, 0, 1, 1});
    store->restoreLastRemovedRegion();
    EXPECT_THAT(ids(), ElementsAre(name.id(), phone.id(), email.id())) << "a custom area is not detected";
    EXPECT_EQ(first.row(), 0);
    EXPECT_EQ(third.row(), 1);

    const QUuid drawn = store->customRegions().front().id();
    model.setSelection(RegionListModel::Selection::Custom);
    EXPECT_THAT(ids(), ElementsAre(drawn));
    model.setSelection(RegionListModel::Selection::All);
    EXPECT_THAT(ids(), ElementsAre(name.id(), phone.id(), drawn, email.id()));
}

TEST_F(RegionListModelTest, AnnouncesWhichAreaIsHighlighted) {
    std::vector<int> changed;
    QObject::connect(&model, &RegionListModel::dataChanged,
                     [&](const QModelIndex& index) { changed.push_back(index.row()); });
    store->setHighlightedRegionID(email.id());
    EXPECT_TRUE(value(1, RegionListModel::IsHighlighted).toBool());
    store->setHighlightedRegionID(phone.id());
    EXPECT_TRUE(value(2, RegionListModel::IsHighlighted).toBool());
    EXPECT_THAT(changed, ElementsAre(1, 1, 2));
}

TEST_F(RegionListModelTest, HighlightsTheAreaThatWasEnteredLastAndNotLeft) {
    EditorPresenter presenter;
    presenter.setStore(&*store);
    presenter.enterRegion(name.id()); // by the keyboard, while the pointer passes two others
    presenter.enterRegion(email.id());
    presenter.enterRegion(phone.id());
    presenter.leaveRegion(email.id());
    EXPECT_EQ(store->highlightedRegionID(), phone.id());
    presenter.leaveRegion(phone.id());
    EXPECT_EQ(store->highlightedRegionID(), name.id());
    presenter.leaveRegion(name.id());
    EXPECT_EQ(store->highlightedRegionID(), QUuid());
}

TEST_F(RegionListModelTest, RevealsWhatAScanHasFound) {
    RegionReveal reveal;
    reveal.setStore(&*store);
    EXPECT_FALSE(reveal.isActive()) << "that scan has ended before";
    store.scan(Qt::red, {200, 100});
    EXPECT_TRUE(reveal.isActive());
    store.found.clear();
    store.scan(Qt::blue, {200, 100});
    EXPECT_FALSE(reveal.isActive());
}

} // namespace
} // namespace Veilshot
