#include "ItemChecks.h"

#include <QRegularExpression>

#include "catalogue/ScanReading.h"
#include "common/Dates.h"
#include "common/TextChecks.h"

namespace ordwell::ItemChecks {

namespace {
const QString InvalidDateTitle = QStringLiteral("Invalid date");
const QString ExpiredText = QStringLiteral("The price has already expired, please enter a date in the future");
const QString BadUnitText = QStringLiteral("The unit must be empty (pieces) or a UN/ECE unit code of two or three "
                                           "letters and digits, for example KGM for kilograms or BX for boxes.");
const QString BadGtinText = QStringLiteral("The GTIN must be the 8, 12, 13 or 14 digits of a product barcode with its "
                                           "check digit, or left empty");
} // namespace

std::optional<QString> gtinFrom(const QString& text) {
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return QString();
    if (!Gtin::hasGtinLength(trimmed) || !Gtin::checkDigitIsRight(trimmed))
        return std::nullopt;
    return Gtin::to14(trimmed);
}

std::optional<QString> unitFrom(const QString& text) {
    static const QRegularExpression unitCode(QStringLiteral("^[0-9A-Z]{2,3}$"));
    const QString unit = text.trimmed().toUpper();
    if (unit.isEmpty() || unitCode.match(unit).hasMatch())
        return unit;
    return std::nullopt;
}

Refusal gtinTaken(const QString& gtin, const QString& otherCode) {
    return Refusal{Gtin,
                   QStringLiteral("The GTIN %1 is already given to item %2. Two items cannot share a product barcode.")
                       .arg(gtin, otherCode),
                   QStringLiteral("Duplicate GTIN")};
}

std::optional<int> quantityFrom(const QString& text, const QLocale& locale) {
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return std::nullopt;
    bool ok = false;
    const int value = locale.toInt(trimmed, &ok);
    if (!ok || value < 0)
        return std::nullopt;
    return value;
}

std::optional<Money> priceFrom(const QString& text, const QLocale& locale) {
    const auto price = Money::parse(text, locale);
    if (!price || *price < Money())
        return std::nullopt;
    return price;
}

QDate dateFrom(const QString& text, const QLocale& locale) {
    const QDate date = Dates::parseShortDate(text, locale);
    if (date.isValid())
        return date;
    // What the box shows where the regional form is too long for it.
    return QDate::fromString(text.trimmed(), Qt::ISODate);
}

QString dateText(const QDate& date, const QLocale& locale) {
    const QString regional = Dates::shortDate(date, locale);
    if (regional.size() <= InputLimits[PriceExpiry])
        return regional;
    return date.toString(Qt::ISODate);
}

std::optional<Refusal> ValidateItem(QStringList& boxes, const QDate& today, const QLocale& locale) {
    while (boxes.size() < BoxCount)
        boxes.append(QString());
    boxes[Code] = UpperCaseCode(boxes[Code]);
    if (boxes[Code].isEmpty())
        return Refusal{Code, QStringLiteral("Please enter an item code"), QStringLiteral("No Item code")};
    if (!IsValidCode(boxes[Code], false))
        return Refusal{Code, QStringLiteral("The Item code contains invalid characters, please correct the item code"),
                       QStringLiteral("Illegal character used")};
    if (boxes[Description].isEmpty())
        return Refusal{Description, QStringLiteral("Please enter an item description"),
                       QStringLiteral("No item description")};
    if (!quantityFrom(boxes[PackQty], locale))
        return Refusal{PackQty, QStringLiteral("Please enter a default pack quantity"),
                       QStringLiteral("Incorrect pack quantity")};
    if (!quantityFrom(boxes[DefaultQty], locale))
        return Refusal{DefaultQty, QStringLiteral("Please enter a default order quantity"),
                       QStringLiteral("Incorrect default order quantity")};
    if (!priceFrom(boxes[Price], locale)) {
        boxes[Price].clear();
        return Refusal{Price, QStringLiteral("You have not entered a valid price, please correct these details"),
                       QStringLiteral("No price defined"), true};
    }
    const QDate expiry = dateFrom(boxes[PriceExpiry], locale);
    if (!expiry.isValid())
        return Refusal{PriceExpiry, QStringLiteral("Please enter a valid date"), InvalidDateTitle};
    if (expiry < today) {
        boxes[PriceExpiry].clear();
        return Refusal{PriceExpiry, ExpiredText, InvalidDateTitle, true};
    }
    const auto gtin = gtinFrom(boxes[Gtin]);
    if (!gtin)
        return Refusal{Gtin, BadGtinText, GtinTitle};
    boxes[Gtin] = *gtin;
    const auto unit = unitFrom(boxes.value(Unit));
    if (!unit)
        return Refusal{Unit, BadUnitText, UnitTitle};
    if (boxes.size() > Unit)
        boxes[Unit] = *unit;
    return std::nullopt;
}

Item itemFrom(const QStringList& boxes, const QLocale& locale) {
    Item item;
    item.code = boxes.value(Code);
    item.description = boxes.value(Description);
    item.packQty = quantityFrom(boxes.value(PackQty), locale).value_or(0);
    item.defaultQty = quantityFrom(boxes.value(DefaultQty), locale).value_or(0);
    item.price = priceFrom(boxes.value(Price), locale).value_or(Money());
    item.priceExpiry = dateFrom(boxes.value(PriceExpiry), locale);
    item.gtin = gtinFrom(boxes.value(Gtin)).value_or(QString());
    item.unit = unitFrom(boxes.value(Unit)).value_or(QString());
    return item;
}

namespace {
// Two decimals with the regional grouping, or without grouping where that would not fit the box.
QString priceText(Money price, const QLocale& locale) {
    const QString grouped = price.toString(locale);
    if (grouped.size() <= InputLimits[Price])
        return grouped;
    QLocale plain = locale;
    plain.setNumberOptions(plain.numberOptions() | QLocale::OmitGroupSeparator);
    return price.toString(plain);
}
} // namespace

QStringList boxesFor(const Item& item, const QLocale& locale) {
    return {item.code,
            item.description,
            QString::number(item.packQty), // no grouping: four characters hold 9999
            QString::number(item.defaultQty),
            priceText(item.price, locale),
            dateText(item.priceExpiry, locale),
            item.gtin,
            item.unit};
}

EnterOutcome enterPressed(Box box, const QString& text, const QDate& today, const CodeExists& codeExists,
                          const QLocale& locale) {
    EnterOutcome outcome;
    switch (box) {
    case Code: {
        const QString code = UpperCaseCode(text);
        outcome.rewritten = code;
        if (!IsValidCode(code, false)) {
            outcome.refusal =
                Refusal{Code, QStringLiteral("The item code contains invalid characters, please correct the item code"),
                        QStringLiteral("Illegal character used")};
            return outcome;
        }
        const auto taken = codeExists ? codeExists(code) : Result<bool>(false);
        if (!taken) {
            outcome.refusal = Refusal{Code, taken.message(), QString()};
            return outcome;
        }
        if (*taken) {
            outcome.refusal = Refusal{Code, DuplicateText, DuplicateTitle};
            return outcome;
        }
        outcome.moveOn = true;
        return outcome;
    }
    case Description:
        outcome.moveOn = !text.isEmpty();
        outcome.rewritten = text;
        return outcome;
    case PackQty:
    case DefaultQty:
        outcome.moveOn = quantityFrom(text, locale).has_value();
        outcome.rewritten = text;
        return outcome;
    case Price: {
        const auto price = priceFrom(text, locale);
        outcome.moveOn = price.has_value();
        outcome.rewritten = price ? priceText(*price, locale) : text;
        return outcome;
    }
    case PriceExpiry: {
        const QDate expiry = dateFrom(text, locale);
        // Enter asks for a day still to come; Save lets today through.
        if (expiry.isValid() && expiry > today) {
            outcome.moveOn = true;
            outcome.rewritten = text;
        } else {
            outcome.refusal = Refusal{PriceExpiry, ExpiredText, InvalidDateTitle, true};
        }
        return outcome;
    }
    case Gtin:
    case Unit: {
        // The optional codes: kept as they are stored, or refused saying what they must be.
        const auto code = box == Gtin ? gtinFrom(text) : unitFrom(text);
        outcome.moveOn = code.has_value();
        outcome.rewritten = code.value_or(text);
        if (!code)
            outcome.refusal =
                box == Gtin ? Refusal{Gtin, BadGtinText, GtinTitle} : Refusal{Unit, BadUnitText, UnitTitle};
        return outcome;
    }
    case BoxCount:
        break;
    }
    return outcome;
}

} // namespace ordwell::ItemChecks
