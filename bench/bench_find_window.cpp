// The find window over a catalogue of 1,000,000 items: how long it takes to open with the list
// and its count shown, how long one typed character takes to move the selection, and the
// process's peak memory after scrolling to the end of the list. Prints "<name> <value> <unit>".
#include "PeakMemory.h"
#include "ScaleData.h"
#include "SilentPrompter.h"
#include "app/AppContext.h"
#include "app/VendorSession.h"
#include "catalogue/Find.h"
#include "catalogue/FindForm.h"
#include "common/Prompter.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>

using namespace ordwell;

namespace {

constexpr int ItemCount = 1000000;
const QString Vendor = QStringLiteral("BIG");

int stop(const char* why) {
    std::fprintf(stderr, "%s\n", why);
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    // The catalogue is made by a separate run of this program, so neither its time nor its
    // memory is counted.
    if (argc == 3 && qstrcmp(argv[1], "--generate") == 0) {
        QCoreApplication app(argc, argv);
        const Status made =
            ScaleData::makeVendor(QString::fromLocal8Bit(argv[2]), Vendor, ItemCount, QDate::currentDate());
        if (!made)
            std::fprintf(stderr, "%s\n", qPrintable(made.message()));
        return made ? 0 : 1;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir dir;
    if (QProcess::execute(QCoreApplication::applicationFilePath(), {QStringLiteral("--generate"), dir.path()}) != 0)
        return stop("cannot make the catalogue");

    SilentPrompter prompter;
    AppContext context(dir.path(), dir.filePath(QStringLiteral("settings.ini")), prompter);
    if (!context.vendorSession().open(Vendor, QStringLiteral("Big Catalogue Ltd")))
        return stop("cannot open the vendor");

    QElapsedTimer timer;
    timer.start();
    auto* form = new FindForm;
    form->SetFindPrompt(Find::ItemPrompt);
    if (!form->SetFindQuery(context.vendorDb(), Find::itemDescriptions()))
        return stop("cannot read the descriptions");
    form->show();
    QCoreApplication::processEvents();
    const double openSeconds = timer.nsecsElapsed() / 1e9;
    const QString count = form->findChild<QLabel*>(QStringLiteral("lblcount"))->text();
    if (count != QStringLiteral("There are %1 records").arg(ItemCount)) {
        std::fprintf(stderr, "unexpected count text: %s\n", qPrintable(count));
        return 1;
    }

    // Typing, one character at a time, in capitals and in small letters (which the list keeps
    // apart), each change followed by a repaint.
    auto* find = form->findChild<QLineEdit*>(QStringLiteral("txtfind"));
    auto* list = form->findChild<QListView*>(QStringLiteral("List1"));
    QList<double> keys;
    for (const QString& typed : {QStringLiteral("Recycled sp"), QStringLiteral("heavy duty n")}) {
        find->clear();
        for (int length = 1; length <= typed.size(); ++length) {
            timer.restart();
            find->setText(typed.left(length));
            QCoreApplication::processEvents();
            keys << timer.nsecsElapsed() / 1e6;
        }
        if (!list->currentIndex().data().toString().startsWith(typed, Qt::CaseInsensitive))
            return stop("typing did not select a matching entry");
    }
    std::sort(keys.begin(), keys.end());

    // Scrolling to the end and back must not drag the whole list into memory.
    list->scrollToBottom();
    QCoreApplication::processEvents();
    list->scrollToTop();
    QCoreApplication::processEvents();
    const long peakKb = peakRssKb();
    delete form;
    context.vendorSession().close();

    std::printf("find_window_open_1m_s %.3f s\n", openSeconds);
    std::printf("find_window_key_max_ms %.1f ms\n", keys.last());
    std::printf("find_window_rss_mb %.1f MB\n", peakKb / 1024.0);
    return 0;
}
