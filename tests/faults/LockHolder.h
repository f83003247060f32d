#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>

#include <cstdio>

namespace ordwell::test {

// Another program in the middle of a write to an SQLite file: a copy of the test's own
// executable, started with --hold-lock FILE, begins a write it never commits (a table named
// held_by_other), says so, and holds it until its input closes.

// First thing in a test's main(): the holder's whole run when this process is one, else -1.
inline int runLockHolder(int argc, char** argv) {
    if (argc != 3 || qstrcmp(argv[1], "--hold-lock") != 0)
        return -1;
    QCoreApplication app(argc, argv);
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    db.setDatabaseName(QString::fromLocal8Bit(argv[2]));
    QSqlQuery q(db);
    if (!db.open() || !q.exec(QStringLiteral("BEGIN IMMEDIATE")) ||
        !q.exec(QStringLiteral("CREATE TABLE held_by_other (x)")))
        return 1;
    std::printf("locked\n");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}

// Starts a holder of `path`; true once it holds its write. holder.closeWriteChannel() ends it.
inline bool startLockHolder(QProcess& holder, const QString& path) {
    holder.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--hold-lock"), path});
    return holder.waitForReadyRead(10000) && holder.readLine().trimmed() == "locked";
}

} // namespace ordwell::test
