#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QtGlobal>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

// What the window benchmarks share: their data is made by a second run of the same program
// ("--generate DIR"), so that making it counts neither in the time nor in the peak memory
// measured by the first.
namespace bench {

inline bool isGeneratorRun(int argc, char** argv) {
    return argc == 3 && qstrcmp(argv[1], "--generate") == 0;
}

// Windows are measured off screen unless the caller chose a platform.
inline void offscreenUnlessChosen() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

// Runs this program again with "--generate DIR"; says what could not be made when it fails.
inline bool generateInChild(const QTemporaryDir& dir, const char* what) {
    if (QProcess::execute(QCoreApplication::applicationFilePath(), {QStringLiteral("--generate"), dir.path()}) == 0)
        return true;
    std::fprintf(stderr, "cannot make %s\n", what);
    return false;
}

inline double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// Lets events run until done() holds; false after ten seconds.
inline bool waitFor(const std::function<bool()>& done) {
    QElapsedTimer waited;
    waited.start();
    while (!done()) {
        if (waited.elapsed() > 10000)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return true;
}

} // namespace bench
