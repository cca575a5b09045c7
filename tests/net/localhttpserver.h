// A small HTTP/1.0 server on 127.0.0.1 for network tests: each path answers with a canned
// response, is held without answer ("hang"), or redirects to itself. It keeps the requests.
#pragma once

#include <QHash>
#include <QTcpServer>
#include <QTcpSocket>

class LocalHttpServer : public QTcpServer
{
public:
    struct Request
    {
        QByteArray method, path, body;
        QHash<QByteArray, QByteArray> headers; // names in lower case
    };

    LocalHttpServer()
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* socket = nextPendingConnection()) // a child of the server
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] { readFrom(socket); });
        });
    }

    QString url(const QByteArray& path) const
    {
        return QStringLiteral("http://127.0.0.1:%1%2").arg(serverPort()).arg(QString::fromLatin1(path));
    }
    void answer(const QByteArray& path, int status, const QByteArray& body)
    {
        m_routes[path] = {status, body};
    }
    void hang(const QByteArray& path) { m_routes[path] = {0, {}}; }
    void redirectForever(const QByteArray& path) { m_routes[path] = {302, {}}; }

    QList<Request> requests;

private:
    void readFrom(QTcpSocket* socket)
    {
        QByteArray& buffer = m_buffers[socket];
        buffer += socket->readAll();
        const qsizetype headerEnd = buffer.indexOf("\r\n\r\n");
        if (headerEnd < 0)
            return;
        QList<QByteArray> lines = buffer.left(headerEnd).split('\n');
        const QList<QByteArray> first = lines.takeFirst().trimmed().split(' ');
        Request request{first.value(0), first.value(1), {}, {}};
        for (const QByteArray& line : std::as_const(lines))
            if (const qsizetype colon = line.indexOf(':'); colon > 0)
                request.headers[line.left(colon).trimmed().toLower()] = line.mid(colon + 1).trimmed();
        const qsizetype length = request.headers.value("content-length").toLongLong();
        if (buffer.size() < headerEnd + 4 + length)
            return;
        request.body = buffer.mid(headerEnd + 4, length);
        m_buffers.remove(socket);
        requests.append(request);

        const auto [status, body] = m_routes.value(request.path, {404, QByteArray("not here")});
        if (status == 0)
            return; // held open, never answered
        QByteArray response = "HTTP/1.0 " + QByteArray::number(status) + " X\r\n";
        if (status == 302)
            response += "Location: " + request.path + "\r\n";
        response += "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
        socket->write(response);
        socket->disconnectFromHost();
    }

    QHash<QByteArray, QPair<int, QByteArray>> m_routes;
    QHash<QTcpSocket*, QByteArray> m_buffers;
};
