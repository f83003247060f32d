#pragma once

#include "catalogue/ItemRepository.h"
#include "common/Status.h"

#include <QDate>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace ordwell {

// The rules of the item window's boxes, apart from the window: what Save checks and in which
// order, what Enter does in each box, and how the box texts become an item.
namespace ItemChecks {

// The boxes in their order on the window (txtbox_0 .. txtbox_7). The GTIN and the unit are
// optional and outside the Enter chain: Enter in "Price expires" still goes to Save.
enum Box { Code, Description, PackQty, DefaultQty, Price, PriceExpiry, Gtin, Unit, BoxCount };

// The input limits of the boxes, in characters.
inline constexpr int InputLimits[BoxCount] = {25, 55, 4, 4, 8, 10, 14, 3};

// A refused value: the message, its title, the box that gets the focus and whether that box is
// emptied first.
struct Refusal {
    Box box = Code;
    QString text;
    QString title;
    bool emptiesBox = false;
};

// Quantities are whole numbers from 0 up, as the integer columns store them.
std::optional<int> quantityFrom(const QString& text, const QLocale& locale = QLocale());
// A price in the regional format ("12.50", "1,234.5"); never negative.
std::optional<Money> priceFrom(const QString& text, const QLocale& locale = QLocale());
// A date in the regional short format (or as yyyy-mm-dd); invalid when it is not one.
QDate dateFrom(const QString& text, const QLocale& locale = QLocale());
// A date as the expiry box shows it: the regional short form where that fits the box's ten
// characters ("11/03/2020"), else yyyy-mm-dd (locales that spell the month out).
QString dateText(const QDate& date, const QLocale& locale = QLocale());

// The GTIN box: empty (no product barcode), or 8, 12, 13 or 14 digits with a right check
// digit, given back as 14 digits; no value when it is neither.
std::optional<QString> gtinFrom(const QString& text);

// The unit box: empty (pieces), or a UN/ECE Recommendation 20 code of two or three letters
// and digits ("KGM", "BX"), given back upper-cased; no value when it is neither.
std::optional<QString> unitFrom(const QString& text);
inline const QString UnitTitle = QStringLiteral("Invalid unit");

// The Save checks in their order; the first failure stops them. The code box text is
// upper-cased first (rewritten in `boxes`); a refused price or expiry is emptied in `boxes`.
// An expiry of today passes.
std::optional<Refusal> ValidateItem(QStringList& boxes, const QDate& today, const QLocale& locale = QLocale());

// The item the checked boxes describe.
Item itemFrom(const QStringList& boxes, const QLocale& locale = QLocale());
// The texts the boxes show for an item.
QStringList boxesFor(const Item& item, const QLocale& locale = QLocale());

// What Enter in a box does: move on (with the box perhaps rewritten), refuse with a message,
// or nothing at all.
struct EnterOutcome {
    bool moveOn = false;
    QString rewritten; // the box's new text when moving on
    std::optional<Refusal> refusal;
};
using CodeExists = std::function<Result<bool>(const QString&)>;
EnterOutcome enterPressed(Box box, const QString& text, const QDate& today, const CodeExists& codeExists,
                          const QLocale& locale = QLocale());

inline const QString DuplicateText =
    QStringLiteral("A Duplicate item code has been detected, please choose a different item code");
inline const QString DuplicateTitle = QStringLiteral("Duplicate Item Code");
inline const QString GtinTitle = QStringLiteral("Invalid GTIN");
// A GTIN another item already carries.
Refusal gtinTaken(const QString& gtin, const QString& otherCode);

} // namespace ItemChecks
} // namespace ordwell
