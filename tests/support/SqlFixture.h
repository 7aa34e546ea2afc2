// The job of SqlFixture is a database for tests: an SQLite file or a PostgreSQL server of its own.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QThread>

namespace plotkit {

inline bool PostgresDo(const QString& what, const QString& folder, QString& said)
{
    QProcess script;
    script.setStandardOutputFile(folder + ".said");  // the server would keep a pipe open
    script.start(PLOTKIT_SOURCE_DIR "/tests/support/postgres.sh", {what, folder});
    script.waitForFinished(60000);
    QFile file(folder + ".said");
    said = file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
    return script.exitStatus() == QProcess::NormalExit && script.exitCode() == 0;
}

/// Two connections, "reads" and "writes", to a database of the kind that the parameter says.
struct TSqlTest : testing::TestWithParam<const char*>
{
    void SetUp() override
    {
        Folder.setAutoRemove(true);
        QFile::setPermissions(Folder.path(), QFile::Permissions(0x7755));
        if (IsServer() && !PostgresDo("start", Server(), Port))
            GTEST_SKIP() << Port.toStdString();
        for (const char* name : {"reads", "writes"}) {
            QSqlDatabase database = QSqlDatabase::addDatabase(IsServer() ? "QPSQL" : "QSQLITE", name);
            database.setDatabaseName(IsServer() ? "postgres" : Folder.filePath("test.db"));
            if (IsServer()) {
                database.setHostName("127.0.0.1");
                database.setPort(Port.toInt());
                database.setUserName("owner");
                database.setPassword("se-cret");
            }
        }
        ASSERT_TRUE(QSqlDatabase::database("writes").isOpen()) << "the connection";
    }
    void TearDown() override
    {
        for (const char* name : {"reads", "writes"})
            QSqlDatabase::removeDatabase(name);
        if (IsServer())
            PostgresDo("remove", Server(), Port);
    }
    bool IsServer() const { return std::string(GetParam()) == "postgresql"; }
    QString Server() const { return Folder.filePath("server"); }
    void Do(const char* sql)
    {
        QSqlQuery query(QSqlDatabase::database("writes"));
        ASSERT_TRUE(query.exec(sql)) << query.lastError().text().toStdString();
    }
    /// Lets timers and sockets work until something is so; a busy machine is given ten seconds.
    template <class TCondition>
    static bool Waits(TCondition condition)
    {
        for (int i = 0; i < 1000 && !condition(); ++i) {
            QCoreApplication::processEvents();
            QThread::msleep(10);
        }
        return condition();
    }

    QTemporaryDir Folder;
    QString Port;
};

}  // namespace plotkit
