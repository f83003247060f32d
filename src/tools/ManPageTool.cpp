// Build-time tool: writes the manual page from its template and the program's option table.
// Usage: ordwell-manpage TEMPLATE OUTPUT

#include "shell/ManPage.h"

#include <QFile>
#include <QTextStream>

int main(int argc, char* argv[]) {
    if (argc != 3) {
        QTextStream(stderr) << "usage: ordwell-manpage TEMPLATE OUTPUT\n";
        return 2;
    }
    QFile in(QString::fromLocal8Bit(argv[1]));
    if (!in.open(QIODevice::ReadOnly)) {
        QTextStream(stderr) << "cannot read " << in.fileName() << '\n';
        return 1;
    }
    const QString page = ordwell::fillManPage(QString::fromUtf8(in.readAll()));
    if (page.isEmpty()) {
        QTextStream(stderr) << in.fileName() << " has no option table marker\n";
        return 1;
    }
    QFile out(QString::fromLocal8Bit(argv[2]));
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) || out.write(page.toUtf8()) < 0) {
        QTextStream(stderr) << "cannot write " << out.fileName() << '\n';
        return 1;
    }
    return 0;
}
