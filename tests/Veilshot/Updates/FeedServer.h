#pragma once

#include <QTcpServer>
#include <QUrl>
#include <vector>

class QTcpSocket;

namespace Veilshot {

/// An HTTP server on a free port of this machine. It speaks plain HTTP: that connections elsewhere are secure
/// is Qt's doing.
class FeedServer : public QTcpServer {
    Q_OBJECT

public:
    /// How it goes on after the bytes. It leaves closing to the client: Qt asks again when a server is
    /// quicker.
    enum class Manner { silent, hangingUp, endless, trickling };
    struct Answer {
        QByteArray bytes;
        Manner manner = Manner::silent;
    };

    FeedServer();

    QUrl address() const;
    static Answer page(const QByteArray& body);
    static Answer redirection(const QByteArray& target);

    /// One for each request in turn; the last for all that follow.
    std::vector<Answer> answers;
    /// As they came, without bodies.
    std::vector<QByteArray> requests;

private:
    void serve(QTcpSocket& client);
};

} // namespace Veilshot
