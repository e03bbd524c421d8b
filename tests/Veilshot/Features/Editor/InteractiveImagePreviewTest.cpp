#include "Veilshot/DesignSystem/Theme.h"
#include "tests/Veilshot/Features/Editor/PreparedStore.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQmlProperty>
#include <QQuickItem>
#include <QQuickWindow>

Q_IMPORT_QML_PLUGIN(Veilshot_DesignSystemPlugin)
Q_IMPORT_QML_PLUGIN(Veilshot_FeaturesPlugin)

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

QStringList warnings;

/// The preview, 400x400, in a window that is drawn in memory.
struct InteractiveImagePreviewTest : testing::Test {
    Theme theme{nullptr};
    StandIns::PreparedStore store;
    QQmlEngine engine;
    QQuickWindow window;
    std::unique_ptr<QQuickItem> preview;

    static void SetUpTestSuite() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }
    void SetUp() override {
        warnings.clear();
        qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& message) { warnings << message; });
        engine.addImportPath(u"qrc:/qt/qml"_s);
        QQmlComponent component(&engine,
                                QUrl(u"qrc:/qt/qml/Veilshot/Features/Editor/InteractiveImagePreview.qml"_s));
        preview.reset(qobject_cast<QQuickItem*>(
            component.createWithInitialProperties({{u"store"_s, QVariant::fromValue(&*store)}})));
        ASSERT_TRUE(preview) << component.errorString().toStdString();
        window.setColor(Qt::black);
        window.resize(400, 400);
        preview->setParentItem(window.contentItem());
        preview->setSize(window.size());
        window.show();
    }
    void TearDown() override {
        qInstallMessageHandler(nullptr);
        EXPECT_EQ(warnings.join(u'\n').toStdString(), "");
    }
    QColor shown(int x, int y) { return window.grabWindow().pixelColor(x, y); }
    bool comesToShow(int x, int y, QColor color) {
        return StandIns::waitUntil([&] { return shown(x, y) == color; });
    }
    QString hint() {
        return QQmlProperty::read(preview.get(), u"Accessible.description"_s, qmlContext(preview.get()))
            .toString();
    }
    void point(QEvent::Type type, QPoint position, Qt::MouseButtons pressed = Qt::LeftButton) {
        QMouseEvent event(type, position, window.mapToGlobal(position),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, pressed, {});
        QGuiApplication::sendEvent(&window, &event);
    }
};

TEST_F(InteractiveImagePreviewTest, ShowsTheProtectedAndTheOriginalImageInItsFrame) {
    EXPECT_EQ(shown(200, 200), QColor(Qt::black));
    store->setRedactionStyle(RedactionStyle::blackout);
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
    store->setPreviewMode(EditorStore::PreviewMode::Protected);
    EXPECT_TRUE(comesToShow(100, 200, Qt::black));
    store->clear();
    EXPECT_TRUE(comesToShow(300, 200, Qt::black));
    for (const int size : {0, 1}) {
        preview->setSize(QSizeF(size, 400));
        store.scan(Qt::red, {10, 5});
        window.grabWindow();
    }
}

TEST_F(InteractiveImagePreviewTest, HighlightsTheAreaUnderThePointerOnlyOnTheProtectedImage) {
    store->setRedactionStyle(RedactionStyle::blackout);
    store.scan(Qt::white, {400, 400});
    store->addCustomBlur({0.5, 0.25, 0.4, 0.4});
    EXPECT_TRUE(comesToShow(280, 200, Qt::black));
    EXPECT_EQ(shown(280, 138), QColor(Qt::white));
    store->setHighlightedRegionID(store->customRegions().front().id());
    const auto isBlue = [](QColor color, int least) { return color.blue() - color.red() >= least; };
    EXPECT_TRUE(StandIns::waitUntil([&] { return isBlue(shown(280, 138), 100); })) << "the line, outside";
    EXPECT_TRUE(isBlue(shown(280, 200), 20)) << "the fill";
    store->setPreviewMode(EditorStore::PreviewMode::Original);
    EXPECT_TRUE(comesToShow(280, 138, Qt::white));
}

TEST_F(InteractiveImagePreviewTest, DrawsAnAreaWithThePointer) {
    store.scan(Qt::white, {1000, 500});
    store->setRedactionStyle(RedactionStyle::blackout);
    const auto drag = [&](QPoint start, QPoint end) {
        point(QEvent::MouseButtonPress, start);
        for (int step = 1; step <= 8; ++step)
            point(QEvent::MouseMove, start + (end - start) * step / 8);
    };
    drag({40, 120}, {240, 220});
    point(QEvent::MouseButtonRelease, {240, 220}, {});
    EXPECT_TRUE(store->customRegions().empty()) << "not in drawing mode";

    point(QEvent::MouseMove, {300, 150}, {});
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(hint(), u"Shows the selected screenshot"_s);
    store->setAddingCustomBlur(true);
    EXPECT_EQ(window.cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(hint(), u"Drag to add a custom blur region"_s);
    drag({40, 120}, {240, 220});
    const QColor draft = shown(140, 170);
    EXPECT_GT(draft.blue() - draft.red(), 20);
    point(QEvent::MouseButtonRelease, {240, 220}, {});
    ASSERT_EQ(store->customRegions().size(), 1u);
    EXPECT_EQ(store->customRegions().front().normalizedRect(), (NormalizedRect{0.1, 0.4, 0.5, 0.5}));
    EXPECT_TRUE(comesToShow(140, 170, Qt::black));
    point(QEvent::MouseMove, {300, 50}, {});
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor) << "outside the image";
    point(QEvent::MouseMove, {300, 150}, {});
    EXPECT_EQ(window.cursor().shape(), Qt::CrossCursor);
    store->setAddingCustomBlur(false);
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
}

} // namespace
} // namespace Veilshot
