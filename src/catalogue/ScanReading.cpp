#include "ScanReading.h"

#include <QLocale>

#include <gs1encoders.h>

namespace ordwell {

namespace Gtin {

bool checkDigitIsRight(const QString& digits) {
    if (digits.size() < 2)
        return false;
    int sum = 0;
    // Weights 3 and 1 alternate from the digit next to the check digit leftwards.
    for (qsizetype i = digits.size() - 2, weight = 3; i >= 0; --i, weight = 4 - weight) {
        const QChar c = digits.at(i);
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
        sum += (c.unicode() - '0') * int(weight);
    }
    const QChar last = digits.back();
    return last.isDigit() && (10 - sum % 10) % 10 == last.unicode() - '0';
}

bool hasGtinLength(const QString& text) {
    const qsizetype n = text.size();
    if (n != 8 && n != 12 && n != 13 && n != 14)
        return false;
    for (QChar c : text)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    return true;
}

QString to14(const QString& digits) {
    return digits.rightJustified(14, QLatin1Char('0'));
}

} // namespace Gtin

QString normaliseGroupSeparators(const QString& text, const QString& substitute) {
    if (substitute.size() != 1)
        return text;
    QString out = text;
    out.replace(substitute.at(0), GroupSeparator);
    return out;
}

struct ScanReader::Engine {
    // `main` reads whole scans with every check on; `scratch` tries pieces of a field on their
    // own, where the fields a piece would need beside it are missing by nature.
    gs1_encoder* main = nullptr;
    gs1_encoder* scratch = nullptr;

    Engine() {
        main = gs1_encoder_init_ex(nullptr, nullptr);
        scratch = gs1_encoder_init_ex(nullptr, nullptr);
        if (scratch)
            gs1_encoder_setValidationEnabled(scratch, gs1_encoder_vREQUISITE_AIS, false);
    }
    ~Engine() {
        if (main)
            gs1_encoder_free(main);
        if (scratch)
            gs1_encoder_free(scratch);
    }
};

namespace {

// The symbology identifiers whose data is a GS1 element string: GS1-128, GS1 DataBar,
// GS1 DataMatrix, GS1 QR Code, GS1 DotCode.
bool carriesElementString(QStringView id) {
    static const char* const ids[] = {"]C1", "]e0", "]d2", "]Q3", "]J1"};
    for (const char* gs1 : ids)
        if (id == QLatin1String(gs1))
            return true;
    return false;
}

// "]" + a letter + a modifier: how a scanner with symbology identifiers on starts every scan.
bool startsWithSymbologyId(const QString& text) {
    return text.size() >= 3 && text.at(0) == QLatin1Char(']') && text.at(1).isLetter() && text.at(2).isLetterOrNumber();
}

QList<Gs1Field> fieldsOf(gs1_encoder* encoder) {
    QList<Gs1Field> fields;
    char** hri = nullptr;
    const int count = gs1_encoder_getHRI(encoder, &hri);
    for (int i = 0; i < count; ++i) {
        // "(01) 09501101530003"; "--" parts a composite component from the linear one.
        const QString line = QString::fromUtf8(hri[i]);
        const qsizetype close = line.indexOf(QLatin1String(") "));
        if (!line.startsWith(QLatin1Char('(')) || close < 0)
            continue;
        fields.append({line.mid(1, close - 1), line.mid(close + 2)});
    }
    return fields;
}

// GS1 dates are YYMMDD with the century nearest today; day 00 means the month's last day.
std::optional<QDate> gs1Date(const QString& yymmdd, const QDate& today) {
    if (yymmdd.size() != 6)
        return std::nullopt;
    const int yy = yymmdd.left(2).toInt();
    const int mm = yymmdd.mid(2, 2).toInt();
    const int dd = yymmdd.mid(4, 2).toInt();
    const int thisYear = today.year();
    int century = thisYear - thisYear % 100;
    const int diff = yy - thisYear % 100;
    if (diff >= 51)
        century -= 100;
    else if (diff <= -50)
        century += 100;
    QDate first(century + yy, mm, 1);
    if (!first.isValid())
        return std::nullopt;
    return dd == 0 ? first.addDays(first.daysInMonth() - 1) : QDate(century + yy, mm, dd);
}

// "001250" with three decimals reads "1.250".
QString decimalText(const QString& digits, int decimals) {
    QString whole = digits.left(digits.size() - decimals);
    while (whole.size() > 1 && whole.startsWith(QLatin1Char('0')))
        whole.remove(0, 1);
    if (whole.isEmpty())
        whole = QStringLiteral("0");
    return decimals == 0 ? whole : whole + QLatin1Char('.') + digits.right(decimals);
}

} // namespace

ScanReader::ScanReader() : m_engine(std::make_unique<Engine>()) {}

ScanReader::~ScanReader() = default;

ScanReading ScanReader::read(const QString& text, const QDate& today) {
    ScanReading reading;
    QString data = text;
    if (startsWithSymbologyId(data)) {
        const QStringView id = QStringView(data).left(3);
        if (carriesElementString(id)) {
            // A separator right after the identifier is an FNC1 in first position left in.
            QString rest = data.mid(3);
            while (rest.startsWith(GroupSeparator))
                rest.remove(0, 1);
            readElementString((id.toString() + rest).toUtf8(), reading, today);
            return reading;
        }
        data = data.mid(3);
    } else if (data.contains(GroupSeparator)) {
        // Separators without an identifier: a GS1-128 label read with identifiers off.
        while (data.startsWith(GroupSeparator))
            data.remove(0, 1);
        readElementString((QStringLiteral("]C1") + data).toUtf8(), reading, today);
        return reading;
    } else if (data.size() > 4 && data.startsWith(QLatin1Char('(')) && data.at(1).isDigit()) {
        // Written out by hand, "(01)09501101530003(10)AB12", as printed under the bars.
        readElementString(data.toUtf8(), reading, today);
        return reading;
    }

    reading.code = data;
    if (Gtin::hasGtinLength(data)) {
        if (Gtin::checkDigitIsRight(data)) {
            reading.kind = ScanReading::Kind::Gtin;
            reading.gtin = Gtin::to14(data);
        } else {
            reading.kind = ScanReading::Kind::Misread;
            reading.refusal = QStringLiteral("The check digit of %1 is wrong: the barcode was misread.").arg(data);
        }
    }
    return reading;
}

void ScanReader::readElementString(const QByteArray& scanData, ScanReading& reading, const QDate& today) {
    reading.kind = ScanReading::Kind::Refused;
    gs1_encoder* engine = m_engine->main;
    if (!engine) {
        reading.refusal = QStringLiteral("GS1 data cannot be read: the reader could not be set up.");
        return;
    }
    auto parse = [&] {
        return scanData.startsWith('(') ? gs1_encoder_setAIdataStr(engine, scanData.constData())
                                        : gs1_encoder_setScanData(engine, scanData.constData());
    };
    if (!parse()) {
        // The engine names the field: "AI (01): The numeric check digit is incorrect."
        const QString why = QString::fromUtf8(gs1_encoder_getErrMsg(engine));
        // A field missing beside another (a case count without its SSCC) leaves what was read
        // true, so it is a warning; a bad field or fields that exclude each other are refused.
        gs1_encoder_setValidationEnabled(engine, gs1_encoder_vREQUISITE_AIS, false);
        const bool readsWithout = parse();
        gs1_encoder_setValidationEnabled(engine, gs1_encoder_vREQUISITE_AIS, true);
        if (!readsWithout) {
            reading.refusal = why.isEmpty() ? QStringLiteral("The GS1 data could not be read.") : why;
            return;
        }
        reading.warnings.append(why);
    }
    reading.kind = ScanReading::Kind::Gs1;
    reading.fields = fieldsOf(engine);

    std::optional<int> count30;
    std::optional<int> count37;
    for (const Gs1Field& f : std::as_const(reading.fields)) {
        if (f.ai == QLatin1String("01") || f.ai == QLatin1String("02"))
            reading.gtin = f.value;
        else if (f.ai == QLatin1String("10"))
            reading.batch = f.value;
        else if (f.ai == QLatin1String("17"))
            reading.expiry = gs1Date(f.value, today);
        else if (f.ai == QLatin1String("30"))
            count30 = f.value.toInt();
        else if (f.ai == QLatin1String("37"))
            count37 = f.value.toInt();
        else if (f.ai.size() == 4 && f.ai.startsWith(QLatin1String("310")))
            reading.netWeightKg = decimalText(f.value, f.ai.at(3).unicode() - '0');
    }
    // (37) counts the trade items inside a case of (02); (30) counts loose items.
    reading.quantity = count37 ? count37 : count30;
    if (reading.expiry && *reading.expiry < today)
        reading.warnings.append(QStringLiteral("The expiry date (17) %1 has passed.")
                                    .arg(QLocale().toString(*reading.expiry, QLocale::ShortFormat)));
    lookForLostSeparators(reading);
}

bool ScanReader::isPredefinedLength(const Gs1Field& field) {
    const auto known = m_predefinedLength.constFind(field.ai);
    if (known != m_predefinedLength.constEnd())
        return *known;
    // GS1's encoder writes a separator after a field only when its length is not predefined:
    // put any field behind this one and see.
    QString value = field.value;
    value.replace(QLatin1Char('('), QLatin1String("\\("));
    const QByteArray probe = QStringLiteral("(%1)%2(90)0").arg(field.ai, value).toUtf8();
    if (!gs1_encoder_setAIdataStr(m_engine->scratch, probe.constData()))
        return false;
    const bool predefined = !QByteArray(gs1_encoder_getDataStr(m_engine->scratch)).endsWith("^900");
    m_predefinedLength.insert(field.ai, predefined);
    return predefined;
}

void ScanReader::lookForLostSeparators(ScanReading& reading) {
    if (!m_engine->scratch)
        return;
    // A variable-length field runs to the next separator, so a lost one glues the following
    // field onto its end: "(10) AB1217261231" was (10) AB12 and (17) 261231. When the end of a
    // field reads on its own as a field of predefined length, say so.
    for (const Gs1Field& field : std::as_const(reading.fields)) {
        if (isPredefinedLength(field))
            continue;
        // Keep at least one character of the field. A tail of at least 8 leaves out only (20),
        // whose two digits would make every batch ending in "2023" look suspect.
        for (qsizetype at = 1; at + 8 <= field.value.size(); ++at) {
            const QString tail = field.value.mid(at);
            if (!tail.at(0).isDigit() || !tail.at(1).isDigit())
                continue;
            const QByteArray data = (QStringLiteral("^") + tail).toUtf8();
            if (!gs1_encoder_setDataStr(m_engine->scratch, data.constData()))
                continue;
            const QList<Gs1Field> glued = fieldsOf(m_engine->scratch);
            if (glued.isEmpty() || !isPredefinedLength(glued.first()))
                continue;
            // isPredefinedLength may have reused the scratch encoder; `glued` is a copy.
            QStringList read;
            for (const Gs1Field& g : glued)
                read.append(QStringLiteral("(%1) %2").arg(g.ai, g.value));
            reading.warnings.append(QStringLiteral("(%1) %2 ends in what reads as %3: a group separator may have "
                                                   "been lost. Check the label.")
                                        .arg(field.ai, field.value, read.join(QLatin1Char(' '))));
            break;
        }
    }
}

} // namespace ordwell
