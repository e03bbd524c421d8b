#include "Veilshot/App/ApplicationService.h"

#include <QDBusMessage>
#include <QDir>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

const QString path = u"/org/veilshot/Veilshot"_s;
const QString interface = u"org.freedesktop.Application"_s;
const QString quickPasteAction = u"quick-paste"_s;
constexpr int patience = 10'000; // milliseconds: the other one may be starting

} // namespace

const QString ApplicationService::serviceName = u"org.veilshot.Veilshot"_s;

ApplicationService::ApplicationService(const QDBusConnection& bus, QObject* parent)
    : QObject(parent), m_bus(bus) {}

ApplicationService::~ApplicationService() {
    if (!m_isFirst)
        return;
    m_bus.unregisterObject(path);
    m_bus.unregisterService(serviceName);
}

ApplicationService::Start ApplicationService::start(const WindowRequest& request,
                                                    const ActivationToken& token) {
    if (!m_bus.isConnected())
        return Start::first;
    if (becomeFirst())
        return Start::first;
    if (handOver(request, token))
        return Start::handedOver;
    // The other one may just have come to its end.
    return becomeFirst() ? Start::first : Start::unanswered;
}

bool ApplicationService::becomeFirst() {
    // Before the name, so that whoever sees the name finds the object.
    m_bus.registerObject(path, this, QDBusConnection::ExportScriptableSlots);
    m_isFirst = m_bus.registerService(serviceName);
    if (!m_isFirst)
        m_bus.unregisterObject(path);
    return m_isFirst;
}

void ApplicationService::Activate(const QVariantMap& platformData) {
    receive({WindowRequest::Action::show, {}}, platformData);
}

void ApplicationService::Open(const QStringList& uris, const QVariantMap& platformData) {
    if (uris.isEmpty()) {
        Activate(platformData);
        return;
    }
    const QUrl url(uris.first());
    // What is not a file has no path; its name then stands in the message that it could not be read.
    receive({WindowRequest::Action::openImage, url.isLocalFile() ? url.toLocalFile() : uris.first()},
            platformData);
}

void ApplicationService::ActivateAction(const QString& action, const QVariantList&,
                                        const QVariantMap& platformData) {
    if (action == quickPasteAction)
        receive({WindowRequest::Action::quickPaste, {}}, platformData);
}

bool ApplicationService::handOver(const WindowRequest& request, const ActivationToken& token) {
    const QVariantMap platformData = token.toPlatformData();
    QDBusMessage call;
    switch (request.action) {
    case WindowRequest::Action::show:
        call = QDBusMessage::createMethodCall(serviceName, path, interface, u"Activate"_s);
        call << platformData;
        break;
    case WindowRequest::Action::openImage:
        call = QDBusMessage::createMethodCall(serviceName, path, interface, u"Open"_s);
        // Absolute, as the other one runs in another folder.
        call << QStringList{QString::fromLatin1(
                    QUrl::fromLocalFile(QDir().absoluteFilePath(request.image)).toEncoded())}
             << platformData;
        break;
    case WindowRequest::Action::quickPaste:
        call = QDBusMessage::createMethodCall(serviceName, path, interface, u"ActivateAction"_s);
        call << quickPasteAction << QVariantList() << platformData;
        break;
    case WindowRequest::Action::nothingYet:
        return true;
    }
    return m_bus.call(call, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

void ApplicationService::receive(const WindowRequest& request, const QVariantMap& platformData) {
    ActivationToken::fromPlatformData(platformData).use();
    Q_EMIT requested(request);
}

} // namespace Veilshot
