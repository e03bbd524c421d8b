#include "Veilshot/App/Scenes.h"

#include "Veilshot/Platform/WindowSystem.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

QString source(Scenes::Id id) {
    switch (id) {
    case Scenes::Id::main:
        return u"qrc:/qt/qml/Veilshot/App/Windows/MainWindow.qml"_s;
    case Scenes::Id::onboarding:
        return u"qrc:/qt/qml/Veilshot/Features/Onboarding/OnboardingWindow.qml"_s;
    case Scenes::Id::settings:
        return u"qrc:/qt/qml/Veilshot/Features/Settings/SettingsWindow.qml"_s;
    case Scenes::Id::about:
        return u"qrc:/qt/qml/Veilshot/App/Windows/AboutWindow.qml"_s;
    case Scenes::Id::updates:
        return u"qrc:/qt/qml/Veilshot/Features/Updates/UpdateWindow.qml"_s;
    }
    return {};
}

} // namespace

Scenes::Scenes(QQmlEngine& engine, QVariantMap properties, QObject* parent)
    : QObject(parent), m_engine(engine), m_properties(std::move(properties)) {}

Scenes::~Scenes() = default;

QQuickWindow& Scenes::window(Id id) {
    const auto found = m_windows.find(id);
    return found == m_windows.end() ? make(id) : *found->second;
}

void Scenes::open(Id id) {
    WindowSystem::present(window(id));
}

bool Scenes::isAnyVisible() const {
    return std::ranges::any_of(m_windows, [](const auto& entry) { return entry.second->isVisible(); });
}

QQuickWindow& Scenes::make(Id id) {
    QQmlComponent component(&m_engine, QUrl(source(id)));
    std::unique_ptr<QObject> object(component.beginCreate(m_engine.rootContext()));
    if (!object)
        qFatal("%s", qPrintable(component.errorString()));
    QVariantMap properties;
    for (auto property = m_properties.cbegin(); property != m_properties.cend(); ++property) {
        if (object->metaObject()->indexOfProperty(property.key().toUtf8().constData()) >= 0)
            properties.insert(property.key(), property.value());
    }
    component.setInitialProperties(object.get(), properties);
    component.completeCreate();
    auto* const window = qobject_cast<QQuickWindow*>(object.get());
    if (component.isError() || !window)
        qFatal("%s", qPrintable(component.errorString()));
    object.release();
    m_windows[id].reset(window);
    connect(window, &QWindow::visibleChanged, this,
            [this, id](bool isVisible) { Q_EMIT visibleChanged(id, isVisible); });
    return *window;
}

} // namespace Veilshot
