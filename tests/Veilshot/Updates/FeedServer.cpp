#include "tests/Veilshot/Updates/FeedServer.h"

#include <QTcpSocket>
#include <QTimer>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Veilshot {

FeedServer::FeedServer() {
    connect(this, &QTcpServer::newConnection, this, [this] {
        QTcpSocket* const client = nextPendingConnection();
        connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
        connect(client, &QTcpSocket::readyRead, client, [this, client] { serve(*client); });
    });
    listen(QHostAddress::LocalHost);
}

QUrl FeedServer::address() const {
    return QUrl(u"http://127.0.0.1:%1/appcast.xml"_s.arg(serverPort()));
}

FeedServer::Answer FeedServer::page(const QByteArray& body) {
    return {"HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body};
}

FeedServer::Answer FeedServer::redirection(const QByteArray& target) {
    return {"HTTP/1.1 302 Found\r\nSet-Cookie: visitor=1\r\nContent-Length: 0\r\nLocation: " + target +
            "\r\n\r\n"};
}

void FeedServer::serve(QTcpSocket& client) {
    if (!client.peek(100'000).contains("\r\n\r\n"))
        return;
    const Answer& answer = answers[std::min(requests.size(), answers.size() - 1)];
    requests.push_back(client.readAll());
    client.write(answer.bytes);
    if (answer.manner == Manner::hangingUp)
        client.disconnectFromHost();
    if (answer.manner == Manner::endless)
        connect(&client, &QTcpSocket::bytesWritten, &client,
                [&client] { client.write(QByteArray(10'000, ' ')); });
    if (answer.manner == Manner::trickling) {
        auto* const timer = new QTimer(&client);
        timer->callOnTimeout([&client] { client.write(" "); });
        timer->start(5ms);
    }
}

} // namespace Veilshot
