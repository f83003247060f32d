#include "PeppolPartyDialog.h"

#include "common/FormHelpers.h"
#include "common/Prompter.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace ordwell {

namespace {

struct BoxSpec {
    const char* caption;
    int maxLength;
    const char* hint;
};

const BoxSpec Boxes[PeppolRules::FieldCount] = {
    {"Address &scheme", 4, "0088 for a GS1 location number (GLN)"},
    {"Electronic &address", 50, "the address in that scheme"},
    {"&Legal name", 100, "the registered name"},
    {"&Country", 2, "two letters, GB"},
    {"C&urrency", 3, "three letters, GBP"},
};

} // namespace

PeppolPartyDialog::PeppolPartyDialog(QSqlDatabase db, PeppolSide side, const QString& partyName, Prompter& prompter,
                                     QWidget* parent)
    : QDialog(parent), m_db(std::move(db)), m_side(side), m_prompter(prompter) {
    setObjectName(QStringLiteral("frmpeppol"));
    setWindowTitle(QStringLiteral("Electronic Ordering - %1").arg(partyName));

    auto* layout = new QVBoxLayout(this);
    auto* about = new QLabel(
        side == PeppolSide::Organisation
            ? QStringLiteral("How a Peppol order names your organisation as the buyer, and the currency of your "
                             "prices.")
            : QStringLiteral("How a Peppol order names this vendor as the seller: its address on the Peppol network "
                             "is given by the vendor."),
        this);
    about->setObjectName(QStringLiteral("lblabout"));
    about->setWordWrap(true);
    layout->addWidget(about);

    auto* form = new QFormLayout;
    const int fields = side == PeppolSide::Organisation ? PeppolRules::FieldCount : PeppolRules::Currency;
    for (int field = 0; field < fields; ++field) {
        auto* box = new QLineEdit(this);
        box->setObjectName(QStringLiteral("txtpeppol_%1").arg(field));
        box->setMaxLength(Boxes[field].maxLength);
        box->setPlaceholderText(QString::fromLatin1(Boxes[field].hint));
        // Room for the whole of a name or address; the codes keep the width of their hint.
        const int chars = Boxes[field].maxLength > 4 ? 42 : 24;
        box->setMinimumWidth(box->fontMetrics().averageCharWidth() * chars + 12);
        auto* caption = new QLabel(QString::fromLatin1(Boxes[field].caption), this);
        caption->setBuddy(box);
        box->setAccessibleName(caption->text().remove(QLatin1Char('&')));
        form->addRow(caption, box);
        m_boxes[static_cast<std::size_t>(field)] = box;
    }
    layout->addLayout(form);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    m_save = new QPushButton(QStringLiteral("&Save"), this);
    m_save->setObjectName(QStringLiteral("cmdsave"));
    auto* cancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdcancel"));
    for (QPushButton* button : {m_save, cancel}) {
        button->setAutoDefault(false);
        pressWithEnter(button);
        buttons->addWidget(button);
    }
    layout->addLayout(buttons);
    connect(m_save, &QPushButton::clicked, this, [this] {
        if (save())
            accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    // Enter goes on to the next box, from the last to Save, as in the other record windows.
    for (int field = 0; field < fields; ++field) {
        QWidget* next = field + 1 < fields ? static_cast<QWidget*>(box(field + 1)) : m_save;
        connect(box(field), &QLineEdit::returnPressed, next, [next] { focusOn(next); });
    }

    auto stored = PeppolPartyStore::load(m_db, side);
    if (!stored) {
        m_prompter.message(stored.message(), QString(), MessageIcon::Critical);
        m_save->setEnabled(false);
        return;
    }
    PeppolParty party = stored.value();
    // The regional settings suggest what is most likely; nothing is kept until saved.
    if (party.country.isEmpty())
        party.country = QLocale::territoryToCode(QLocale().territory());
    if (side == PeppolSide::Organisation && party.currency.isEmpty())
        party.currency = QLocale().currencySymbol(QLocale::CurrencyIsoCode);
    box(PeppolRules::Scheme)->setText(party.scheme);
    box(PeppolRules::Endpoint)->setText(party.endpoint);
    box(PeppolRules::LegalName)->setText(party.legalName);
    box(PeppolRules::Country)->setText(party.country);
    if (side == PeppolSide::Organisation)
        box(PeppolRules::Currency)->setText(party.currency);
}

PeppolParty PeppolPartyDialog::typed() const {
    PeppolParty party;
    party.scheme = box(PeppolRules::Scheme)->text();
    party.endpoint = box(PeppolRules::Endpoint)->text();
    party.legalName = box(PeppolRules::LegalName)->text();
    party.country = box(PeppolRules::Country)->text();
    if (m_side == PeppolSide::Organisation)
        party.currency = box(PeppolRules::Currency)->text();
    return PeppolRules::normalised(party);
}

bool PeppolPartyDialog::save() {
    const PeppolParty party = typed();
    const auto problems = PeppolRules::problems(party, m_side);
    if (!problems.isEmpty()) {
        m_prompter.message(problems.first().message, QStringLiteral("Invalid Data"), MessageIcon::Exclamation);
        focusOn(box(problems.first().field));
        box(problems.first().field)->selectAll();
        return false;
    }
    if (const Status saved = PeppolPartyStore::save(m_db, m_side, party); !saved) {
        m_prompter.message(saved.message(), QString(), MessageIcon::Critical);
        return false;
    }
    return true;
}

} // namespace ordwell
