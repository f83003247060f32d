#pragma once

#include <QLocale>
#include <QString>
#include <cstdio>
#include <cstdlib>

// Shared bits of the fuzz targets: a broken invariant aborts, so libFuzzer keeps the input.
namespace ordwell::fuzz {

[[noreturn]] inline void fail(const char* what, const QString& detail = {}) {
    std::fprintf(stderr, "invariant broken: %s %s\n", what, qUtf8Printable(detail));
    std::abort();
}

inline void check(bool condition, const char* what, const QString& detail = {}) {
    if (!condition)
        fail(what, detail);
}

// The program runs in the user's locale; the seeds are written for a British one.
inline void fixLocale() {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
}

} // namespace ordwell::fuzz
