#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>
#include <QTimer>
#include <QUrl>
#include <chrono>

class QNetworkReply;

namespace Veilshot {

/// Fetches a feed once. Nothing is kept: no cookies, no cache, no connection. The server learns the product
/// and its version, and the address that any server learns. Ends silently when it is destroyed.
class FeedDownload : public QObject {
    Q_OBJECT

public:
    struct Limits {
        qint64 bytes = 1'000'000;
        /// From the first to the last byte, redirections included.
        std::chrono::milliseconds duration{30'000};
    };

    /// Begins at once. `product` is what the server is told, as "Veilshot/1.0".
    FeedDownload(const QUrl& url, const QByteArray& product, const Limits& limits, QObject* parent = nullptr);
    ~FeedDownload() override;

    /// https anywhere, or http on this machine, which is for trying things out.
    static bool isAllowed(const QUrl& url);

Q_SIGNALS:
    /// Exactly one of these comes, once, from the event loop.
    void received(const QByteArray& body);
    /// With a sentence for the user.
    void failed(const QString& message);

private:
    void request(const QUrl& url);
    void read();
    void finish();
    bool mayFollow(const QUrl& target) const;
    void abort(const QString& message);
    QString failureMessage() const;

    QByteArray m_product;
    Limits m_limits;
    QNetworkAccessManager m_network;
    /// Where it is fetched from by now, and after how many redirections.
    QUrl m_url;
    int m_redirections = 0;
    QNetworkReply* m_reply = nullptr;
    QTimer m_deadline;
    QByteArray m_body;
    /// Why we ended it ourselves, if we did.
    QString m_refusal;
};

} // namespace Veilshot
