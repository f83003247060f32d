#include "support/TestSupport.h"
#include <QTest>
class TestShell : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { ordwell::test::initTestEnvironment(); }
};
QTEST_MAIN(TestShell)
#include "tst_shell.moc"
