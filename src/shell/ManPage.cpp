#include "ManPage.h"

#include "app/Options.h"

#include <QStringList>

namespace ordwell {

namespace {

// troff reads a backslash as an escape and a plain '-' as a hyphen that may be typeset as
// a dash; options must stay copyable from the page, so both are escaped. A leading '.' or
// '\'' would start a request.
QString troffText(const QString& text) {
    QString out;
    out.reserve(text.size() + 8);
    for (const QChar c : text) {
        if (c == QLatin1Char('\\'))
            out += QStringLiteral("\\e");
        else if (c == QLatin1Char('-'))
            out += QStringLiteral("\\-");
        else
            out += c;
    }
    if (out.startsWith(QLatin1Char('.')) || out.startsWith(QLatin1Char('\'')))
        out.prepend(QStringLiteral("\\&"));
    return out;
}

} // namespace

QString manPageOptions() {
    QStringList lines;
    for (const OptionSpec& spec : optionTable()) {
        QStringList forms;
        for (const QString& name : spec.names) {
            const QString dashes = name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--");
            QString form = QStringLiteral("\\fB") + troffText(dashes + name) + QStringLiteral("\\fR");
            if (!spec.valueName.isEmpty())
                form += QStringLiteral(" \\fI") + troffText(spec.valueName) + QStringLiteral("\\fR");
            forms << form;
        }
        lines << QStringLiteral(".TP") << forms.join(QStringLiteral(", ")) << troffText(spec.help);
    }
    return lines.join(QLatin1Char('\n'));
}

QString fillManPage(const QString& pageTemplate) {
    QStringList lines = pageTemplate.split(QLatin1Char('\n'));
    const qsizetype at = lines.indexOf(QString::fromLatin1(manPageOptionsMarker));
    if (at < 0)
        return {};
    lines[at] = manPageOptions();
    return lines.join(QLatin1Char('\n'));
}

} // namespace ordwell
