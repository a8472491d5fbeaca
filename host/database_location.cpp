#include "host/database_location.h"

#include <QStringList>

#include <libpq-fe.h>

#include <memory>

namespace tolvinpt::host {
namespace {

// libpq's quoting of a connection setting: in single quotes, with \ and ' escaped.
QString quotedSetting(const QString& value)
{
    QString escaped = value;
    escaped.replace(u'\\', QStringLiteral("\\\\")).replace(u'\'', QStringLiteral("\\'"));
    return u'\'' + escaped + u'\'';
}

} // namespace

bool isServerUri(const QString& text)
{
    return text.startsWith(QStringLiteral("postgresql://")) || text.startsWith(QStringLiteral("postgres://"));
}

std::optional<ServerDatabase> parseServerUri(const QString& uri, QString& error)
{
    char* message = nullptr;
    const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> options(
        PQconninfoParse(uri.toUtf8().constData(), &message), PQconninfoFree);
    if (!options) {
        error = message ? QString::fromUtf8(message).trimmed() : QStringLiteral("out of memory");
        PQfreemem(message);
        return std::nullopt;
    }
    ServerDatabase server;
    QStringList others;
    for (const PQconninfoOption* option = options.get(); option->keyword; ++option) {
        if (!option->val)
            continue;
        const QString keyword = QString::fromUtf8(option->keyword);
        const QString value = QString::fromUtf8(option->val);
        if (keyword == u"password") {
            error = QStringLiteral("パスワードはコマンドラインに書かず、~/.pgpass (PGPASSFILE) か "
                                   "PGPASSWORD で渡してください。");
            return std::nullopt;
        }
        bool isNumber = false;
        const int port = value.toInt(&isNumber);
        if (keyword == u"host")
            server.host = value;
        else if (keyword == u"port" && isNumber) // a list of ports, one per host, stays with the options
            server.port = port;
        else if (keyword == u"user")
            server.user = value;
        else if (keyword == u"dbname")
            server.name = value;
        else
            others << keyword + u'=' + quotedSetting(value);
    }
    server.options = others.join(u';');
    return server;
}

} // namespace tolvinpt::host
