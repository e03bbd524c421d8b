#include "Veilshot/Updates/FeedDownload.h"

#include <QHostAddress>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

constexpr int maximumRedirections = 5;

bool isOnThisMachine(const QUrl& url) {
    return url.host() == "localhost"_L1 || QHostAddress(url.host()).isLoopback();
}

QNetworkRequest makeRequest(const QUrl& url, const QByteArray& product) {
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::UserAgentHeader, QString::fromLatin1(product));
    // Qt would tell the user's language, and unpack what could be far larger than it was on the way.
    request.setRawHeader("Accept-Language", "en");
    request.setRawHeader("Accept-Encoding", "identity");
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    // Each target is looked at before anything is sent to it.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    return request;
}

} // namespace

FeedDownload::FeedDownload(const QUrl& url, const QByteArray& product, const Limits& limits, QObject* parent)
    : QObject(parent), m_product(product), m_limits(limits) {
    if (isOnThisMachine(url))
        m_network.setProxy(QNetworkProxy::NoProxy);
    m_deadline.setSingleShot(true);
    m_deadline.callOnTimeout(this, [this] { abort(u"The update server took too long to answer."_s); });
    m_deadline.start(limits.duration);
    request(url);
}

FeedDownload::~FeedDownload() {
    m_reply->disconnect(this);
    m_reply->abort();
}

bool FeedDownload::isAllowed(const QUrl& url) {
    if (!url.isValid() || url.host().isEmpty())
        return false;
    return url.scheme() == "https"_L1 || (url.scheme() == "http"_L1 && isOnThisMachine(url));
}

void FeedDownload::request(const QUrl& url) {
    m_url = url;
    m_body.clear();
    m_reply = m_network.get(makeRequest(url, m_product));
    m_reply->setReadBufferSize(m_limits.bytes + 1);
    connect(m_reply, &QNetworkReply::readyRead, this, &FeedDownload::read);
    connect(m_reply, &QNetworkReply::finished, this, &FeedDownload::finish);
}

void FeedDownload::read() {
    m_body += m_reply->readAll();
    if (m_body.size() > m_limits.bytes)
        abort(u"The update server’s answer is too long."_s);
}

void FeedDownload::finish() {
    if (m_refusal.isEmpty() && m_reply->error() == QNetworkReply::NoError) {
        const QUrl target = m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
        if (target.isEmpty()) {
            m_deadline.stop();
            Q_EMIT received(m_body);
            return;
        }
        if (mayFollow(m_url.resolved(target))) {
            ++m_redirections;
            m_reply->deleteLater();
            request(m_url.resolved(target));
            return;
        }
        m_refusal = u"The update server refers to an address that Veilshot won’t follow."_s;
    }
    m_deadline.stop();
    Q_EMIT failed(failureMessage());
}

bool FeedDownload::mayFollow(const QUrl& target) const {
    // Never from a secure connection to one that is not, wherever that leads.
    const bool isAsSecure = target.scheme() == "https"_L1 || m_url.scheme() != "https"_L1;
    return isAllowed(target) && isAsSecure && m_redirections < maximumRedirections;
}

void FeedDownload::abort(const QString& message) {
    m_refusal = message;
    m_reply->abort(); // finishes it
}

QString FeedDownload::failureMessage() const {
    if (!m_refusal.isEmpty())
        return m_refusal;
    if (m_reply->error() == QNetworkReply::SslHandshakeFailedError)
        return u"The update server’s identity couldn’t be verified."_s;
    if (const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        status >= 400)
        return u"The update server answered with error %1."_s.arg(status);
    return u"The update server couldn’t be reached. Check your internet connection."_s;
}

} // namespace Veilshot
