#include "Veilshot/DesignSystem/Theme.h"
#include "Veilshot/Features/Editor/BitmapView.h"
#include "tests/Veilshot/Features/Editor/PreparedStore.h"

#include <QAccessible>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

Q_IMPORT_QML_PLUGIN(Veilshot_DesignSystemPlugin)
Q_IMPORT_QML_PLUGIN(Veilshot_FeaturesPlugin)

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

/// The preview, 400x400, in a window that is drawn in memory.
struct InteractiveImagePreviewTest : testing::Test {
    Theme theme{nullptr};
    StandIns::PreparedStore store;
    QQuickView window;

    void SetUp() override {
        QObject::connect(window.engine(), &QQmlEngine::warnings, [](const QList<QQmlError>& warnings) {
            ADD_FAILURE() << warnings.front().toString().toStdString();
        });
        window.engine()->addImportPath(u"qrc:/qt/qml"_s);
        window.setInitialProperties({{u"store"_s, QVariant::fromValue(&*store)}});
        window.setSource(QUrl(u"qrc:/qt/qml/Veilshot/Features/Editor/InteractiveImagePreview.qml"_s));
        ASSERT_TRUE(window.rootObject());
        window.setResizeMode(QQuickView::SizeRootObjectToView);
        window.setColor(Qt::black);
        window.resize(400, 400);
        window.show();
        store->setRedactionStyle(RedactionStyle::blackout);
    }
    QColor shown(int x, int y) { return window.grabWindow().pixelColor(x, y); }
    bool comesToShow(int x, int y, QColor color) {
        return StandIns::waitUntil([&] { return shown(x, y) == color; });
    }
    /// How much of a tint there is.
    int blue(int x, int y) {
        const QColor color = shown(x, y);
        return color.blue() - color.red();
    }
    void press(QPoint start, QPoint end) {
        QTest::mousePress(&window, Qt::LeftButton, {}, start);
        for (int step = 1; step <= 8; ++step)
            QTest::mouseMove(&window, start + (end - start) * step / 8);
    }
    QString hint() {
        return QAccessible::queryAccessibleInterface(window.rootObject())->text(QAccessible::Description);
    }
};

TEST_F(InteractiveImagePreviewTest, ShowsTheProtectedAndTheOriginalImageInItsFrame) {
    store.found = {{QUuid::createUuid(), {0, 0, 0.5, 1}, SensitiveKind::name}};
    store.scan(Qt::red, {1000, 500});
    EXPECT_TRUE(StandIns::waitUntil([&] { return shown(100, 200).red() > 10; }))
        << "what is found is revealed";
    EXPECT_TRUE(comesToShow(100, 200, Qt::black)) << "only for a moment";
    EXPECT_EQ(shown(300, 200), QColor(Qt::red));
    EXPECT_EQ(shown(300, 98), QColor(Qt::black)) << "above the frame";
    EXPECT_EQ(shown(399, 100), QColor(Qt::black)) << "the frame's corners are round";
    store->setPreviewMode(EditorStore::PreviewMode::Original);
    EXPECT_TRUE(comesToShow(100, 200, Qt::red));
    for (const int width : {0, 1}) {
        window.rootObject()->setWidth(width);
        store.scan(Qt::red, {10, 5});
        window.grabWindow();
    }
}

TEST_F(InteractiveImagePreviewTest, KeepsNoPictureThatWasClosed) {
    struct View : BitmapView {
        bool hasTexture = false;

        QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override {
            QSGNode* const node = BitmapView::updatePaintNode(old, data);
            hasTexture = node != nullptr;
            return node;
        }
    };
    View view;
    view.setStore(&*store);
    view.setSize({200, 200});
    view.setParentItem(window.contentItem());
    for (const bool isShown : {true, false}) {
        view.setVisible(true);
        store.scan(Qt::red, {100, 100});
        EXPECT_TRUE(StandIns::waitUntil([&] { return view.hasTexture; }));
        store->clear();
        view.setVisible(isShown);
        EXPECT_TRUE(StandIns::waitUntil([&] { return !view.hasTexture; })) << isShown;
    }
}

TEST_F(InteractiveImagePreviewTest, HighlightsTheAreaUnderThePointerOnlyOnTheProtectedImage) {
    store.scan(Qt::white, {400, 400});
    store->addCustomBlur({0.5, 0.25, 0.4, 0.4});
    EXPECT_TRUE(comesToShow(280, 200, Qt::black));
    EXPECT_EQ(shown(280, 138), QColor(Qt::white));
    store->setHighlightedRegionID(store->customRegions().front().id());
    EXPECT_TRUE(StandIns::waitUntil([&] { return blue(280, 138) >= 100; })) << "the line, outside";
    EXPECT_GE(blue(280, 200), 20) << "the fill";
    store->setPreviewMode(EditorStore::PreviewMode::Original);
    EXPECT_TRUE(comesToShow(280, 138, Qt::white));
    store->setPreviewMode(EditorStore::PreviewMode::Protected);
    EXPECT_TRUE(StandIns::waitUntil([&] { return blue(280, 138) >= 100; }));
    store->undoCustomBlur();
    EXPECT_GT(blue(280, 138), 0) << "the mark fades, though its area is gone";
    EXPECT_TRUE(comesToShow(280, 138, Qt::white));
}

TEST_F(InteractiveImagePreviewTest, DrawsAnAreaWithThePointer) {
    store.scan(Qt::white, {1000, 500});
    const QPoint start(40, 120), end(240, 220);
    press(start, end);
    QTest::mouseRelease(&window, Qt::LeftButton, {}, end);
    EXPECT_TRUE(store->customRegions().empty()) << "not in drawing mode";

    QTest::mouseMove(&window, {300, 150});
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
    store->setAddingCustomBlur(true);
    EXPECT_EQ(window.cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(hint(), u"Drag to add a custom blur region"_s);
    press(start, end);
    EXPECT_GT(blue(140, 170), 20) << "the draft";
    QTest::mouseRelease(&window, Qt::LeftButton, {}, end);
    ASSERT_EQ(store->customRegions().size(), 1u);
    EXPECT_EQ(store->customRegions().front().normalizedRect(), (NormalizedRect{0.1, 0.4, 0.5, 0.5}));
    EXPECT_TRUE(comesToShow(140, 170, Qt::black));
    QTest::mouseMove(&window, {300, 50});
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor) << "outside the image";
}

} // namespace
} // namespace Veilshot
