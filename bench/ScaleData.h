#pragma once

#include "common/Status.h"

#include <QDate>
#include <QSqlDatabase>
#include <QString>

namespace ordwell::ScaleData {

// Item codes of the generated data: "IT" and eight digits, so they sort by number.
QString itemCode(int number);

// Adds items number `from` to `from + count - 1` to a vendor's catalogue in one statement. Their
// descriptions are spread over the alphabet (not in code order), so a description index has
// real work; prices are valid until `expiry`, except every `expiredEvery`-th item (0: none),
// whose price expired the day before `today`.
Status addItems(const QSqlDatabase& db, int from, int count, const QDate& today, int expiredEvery = 0);

// A vendor database of `count` items in `dataDir`, made and closed again.
Status makeVendor(const QString& dataDir, const QString& vendorCode, int count, const QDate& today,
                  int expiredEvery = 0);

// A price list of `count` lines for items number `from` onwards, in the import file's format
// (code, description, pack quantity, default quantity, price, expiry as yyyy-MM-dd), prices
// different from those addItems gives, all valid on `today`.
Status writePriceList(const QString& path, int from, int count, const QDate& today);

} // namespace ordwell::ScaleData
