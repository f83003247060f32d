#pragma once

#include "common/Sql.h"
#include "store/DatabaseFile.h"
#include "store/ServerStore.h"

#include <QString>
#include <QStringList>
#include <cstdio>

// The server figures are taken beside the embedded ones when scripts/bench has started a
// throwaway PostgreSQL server and named it in ORDWELL_BENCH_SERVER.
namespace bench {

inline QString server() {
    return qEnvironmentVariable("ORDWELL_BENCH_SERVER");
}

// Makes vendor `code` on the server afresh, as a copy of vendor `from`'s rows when `from` is
// given, so every timed run starts from the same data. The copy runs inside the server.
inline bool freshServerVendor(const QString& code, const QString& from = {}) {
    const QString connection = QStringLiteral("bench-admin");
    bool ok = false;
    {
        auto db = ordwell::ServerStore::connect(connection, server());
        if (!db) {
            std::fprintf(stderr, "%s\n", qPrintable(db.message()));
        } else {
            const QString schema = ordwell::ServerStore::vendorSchemaName(code);
            ok = bool(ordwell::Sql::run(*db, QStringLiteral("DROP SCHEMA IF EXISTS ") + schema +
                                                 QStringLiteral(" CASCADE"))) &&
                 bool(ordwell::ServerStore::createVendor(*db, code));
            if (ok && !from.isEmpty()) {
                const QString source = ordwell::ServerStore::vendorSchemaName(from);
                for (const QString& table : {QStringLiteral("vendor"), QStringLiteral("items"),
                                             QStringLiteral("orderhead"), QStringLiteral("orderline")}) {
                    const QString copy = QStringLiteral("INSERT INTO ") + schema + QLatin1Char('.') + table +
                                         QStringLiteral(" OVERRIDING SYSTEM VALUE SELECT * FROM ") + source +
                                         QLatin1Char('.') + table;
                    ok = ok && bool(ordwell::Sql::run(*db, copy));
                }
                ok = ok && bool(ordwell::Sql::run(*db, QStringLiteral("ANALYZE")));
            }
            if (!ok)
                std::fprintf(stderr, "cannot make vendor %s on the server\n", qPrintable(code));
        }
    }
    ordwell::DatabaseFile::close(connection);
    return ok;
}

} // namespace bench
