// Reading one GS1 case label through GS1's syntax engine, with the lost-separator check: the
// parse alone, before any catalogue look-up. Prints "gs1_parse_median_us <microseconds> us",
// the median of many reads of a few real label strings.
#include "catalogue/ScanReading.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <vector>

using namespace ordwell;

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QString gs(GroupSeparator);
    const QStringList labels = {
        QStringLiteral("]C101095011015300031726123110ABC123"),
        QStringLiteral("]d20109501101530003") + QStringLiteral("10LOT7") + gs + QStringLiteral("17270600"),
        QStringLiteral("]C1000950110100000000180209501101530003") + QStringLiteral("3712") + gs +
            QStringLiteral("10B9"),
        QStringLiteral("]C10109501101530003") + QStringLiteral("3103001250") + QStringLiteral("10ABC17261231"),
    };
    ScanReader reader;
    const QDate today = QDate::currentDate();
    constexpr int Rounds = 5000;
    std::vector<qint64> times;
    times.reserve(Rounds * labels.size());
    int read = 0;
    QElapsedTimer timer;
    for (int round = 0; round < Rounds; ++round) {
        for (const QString& label : labels) {
            timer.start();
            const ScanReading r = reader.read(label, today);
            times.push_back(timer.nsecsElapsed());
            read += r.kind == ScanReading::Kind::Gs1;
        }
    }
    if (read != Rounds * labels.size()) {
        std::fprintf(stderr, "a label did not read\n");
        return 1;
    }
    std::nth_element(times.begin(), times.begin() + times.size() / 2, times.end());
    std::printf("gs1_parse_median_us %.1f us\n", times[times.size() / 2] / 1000.0);
    return 0;
}
