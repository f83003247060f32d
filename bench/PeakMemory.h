#pragma once

#include <QByteArray>
#include <QFile>

// The process's peak resident memory in kilobytes (Linux's VmHWM), or -1 where it cannot be read.
inline long peakRssKb() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toLong();
    }
    return -1;
}
