#include "ServerChoice.h"

#include "common/Sql.h"
#include "store/DatabaseFile.h"
#include "store/ServerStore.h"

#include <QRegularExpression>
#include <QSettings>

namespace ordwell::ServerChoice {

QString kept(const QSettings& settings) {
    return settings.value(SettingsKey).toString();
}

Status keep(QSettings& settings, const QString& conninfo) {
    const QString text = conninfo.trimmed();
    if (text.isEmpty()) {
        settings.remove(SettingsKey);
    } else {
        if (Status checked = check(text); !checked)
            return checked;
        settings.setValue(SettingsKey, text);
    }
    settings.sync();
    if (settings.status() != QSettings::NoError)
        return Status::fail(QStringLiteral("The choice could not be kept: the settings file %1 could not be written.")
                                .arg(settings.fileName()));
    return Status::ok();
}

Status check(const QString& conninfo) {
    const auto form = ServerStore::keywordForm(conninfo);
    if (!form)
        return form.status();
    static const QRegularExpression password(QStringLiteral("(?:^|\\s)password\\s*="));
    if (password.match(*form).hasMatch())
        return Status::fail(QStringLiteral("A password is never kept in Ordwell's settings. Leave it out here and "
                                           "put it in PostgreSQL's password file (~/.pgpass) instead."));
    return Status::ok();
}

Result<QString> test(const QString& conninfo) {
    if (Status checked = check(conninfo); !checked)
        return checked;
    const QString connection = QStringLiteral("ordwell-server-test");
    Result<QString> result = Status::fail(QString());
    {
        auto db = ServerStore::connect(connection, conninfo);
        if (!db) {
            result = db.status();
        } else {
            const auto version = Sql::scalar(*db, QStringLiteral("SHOW server_version"));
            const auto ours = Sql::scalar(
                *db, QStringLiteral("SELECT count(*) FROM information_schema.schemata WHERE schema_name = ?"),
                {ServerStore::SystemSchema});
            if (!version || !ours) {
                result = Status::fail(version ? ours.message() : version.message());
            } else {
                const QString found = ours->toInt() > 0
                                          ? QStringLiteral("It holds Ordwell's data.")
                                          : QStringLiteral("It holds no Ordwell data yet: Ordwell sets it up when "
                                                           "it next starts with this server.");
                result = QStringLiteral("Connected to %1 (PostgreSQL %2). %3")
                             .arg(ServerStore::describe(conninfo), version->toString().section(QLatin1Char(' '), 0, 0),
                                  found);
            }
        }
    }
    DatabaseFile::close(connection);
    return result;
}

} // namespace ordwell::ServerChoice
