// Item entry: codes typed or scanned, barcode rules, unknown items and finding by description.
#include "orders/OrderForm.h"

#include "catalogue/Find.h"
#include "common/BoxLimit.h"
#include "common/FormHelpers.h"
#include "common/TextChecks.h"
#include "common/WaitCursor.h"

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace ordwell {

namespace {
bool isEnter(const QKeyEvent* key) {
    return key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
}

// A whole number written the user's way ("12", "1,000").
std::optional<qint64> wholeNumber(const QString& text) {
    bool ok = false;
    const qint64 value = QLocale().toLongLong(text.trimmed(), &ok);
    if (!ok)
        return std::nullopt;
    return value;
}

// A price in the price box, grouped as the user writes it where that fits the box, else
// without grouping, and in full either way.
void showPrice(QLineEdit* box, Money price) {
    QString text = price.toString();
    if (text.size() > typingLimit(box)) {
        QLocale plain;
        plain.setNumberOptions(plain.numberOptions() | QLocale::OmitGroupSeparator);
        text = price.toString(plain);
    }
    showWhole(box, text);
}
} // namespace

bool OrderForm::txtitem_KeyPress(int index, QKeyEvent* key) {
    QLineEdit* box = m_ui.txtitem[index];
    if (box->isReadOnly())
        return false;
    const bool enter = isEnter(key);
    const bool tab = key->key() == Qt::Key_Tab && key->modifiers() == Qt::NoModifier;
    if (index == Entry::Code) {
        if (!enter)
            return false;
        // Read as scanned: a case label's batch may hold small letters, and the reading
        // upper-cases what is an ordinary code.
        ResolveItemCode();
        return true;
    }
    if (!enter && !tab)
        return false;
    switch (index) {
    case Entry::Description:
        if (!box->text().isEmpty())
            focusOn(m_ui.txtitem[Entry::Price]);
        break;
    case Entry::Qty:
        if (const auto qty = wholeNumber(box->text()); qty && *qty >= 0) {
            AddOrUpdateLine();
            ReadyForNextItem();
            ClearItemEntry();
        }
        break;
    case Entry::Price:
        if (!box->text().isEmpty())
            focusOn(m_ui.txtitem[Entry::Pack]);
        break;
    case Entry::Pack:
        // Only while an unknown item's details are being entered.
        if (ValidateUnknownItem()) {
            SaveUnknownItem();
            m_ui.lblinfo->clear();
            QuantityState();
            focusOn(m_ui.txtitem[Entry::Qty]);
        }
        break;
    default:
        break;
    }
    return true;
}

void OrderForm::LoadBarcodeRules() {
    m_ui.lblinfo->setText(QStringLiteral("Loading Barcode rules"));
    WaitCursor wait;
    if (const Status loaded = m_desk.loadRules(vendorDb()); !loaded)
        reportFailure(QStringLiteral("The barcode rules could not be read."), loaded.message());
}

void OrderForm::ResolveItemCode() {
    QLineEdit* codeBox = m_ui.txtitem[Entry::Code];
    const ScanStep step = m_desk.scan(vendorDb(), codeBox->text(), m_ui.chkunknown->isChecked(), QDate::currentDate());
    codeBox->setText(step.code);
    showScanNote(step.note);
    if (step.alert)
        alertUser();
    switch (step.outcome) {
    case ScanOutcome::Item:
        FillFromItem(*m_desk.currentItem);
        if (step.quantity)
            m_ui.txtitem[Entry::Qty]->setText(QString::number(*step.quantity));
        return;
    case ScanOutcome::Misread:
    case ScanOutcome::NothingFound:
        ClearItemEntry();
        focusOn(codeBox);
        return;
    case ScanOutcome::Empty:
        focusOn(codeBox);
        return;
    case ScanOutcome::TooLong:
        context().prompter().message(
            QStringLiteral("The item code is longer than %1 characters, too long to be saved").arg(ItemCodeLength),
            QStringLiteral("Data Error"), MessageIcon::Information);
        return;
    case ScanOutcome::BadCharacters:
        context().prompter().message(QStringLiteral("The item code contains illegal characters"),
                                     QStringLiteral("Data Error"), MessageIcon::Information);
        return;
    case ScanOutcome::Unknown:
        PromptUnknownItem();
        focusOn(m_ui.txtitem[Entry::Description]);
        return;
    }
}

void OrderForm::showScanNote(const QString& note) {
    // The note replaces the guidance only while it is worth reading; the guidance comes back
    // with the next code that reads cleanly.
    const bool noteShowing = !m_scanNote.isEmpty() && m_ui.lblinfo->text() == m_scanNote;
    if (!noteShowing)
        m_guidanceBeforeNote = m_ui.lblinfo->text();
    m_scanNote = note;
    m_ui.lblinfo->setText(note.isEmpty() ? m_guidanceBeforeNote : note);
}

void OrderForm::alertUser() {
    QApplication::beep();
}

void OrderForm::FillFromItem(const CatalogueItem& item) {
    m_desk.currentItem = item;
    m_ui.txtitem[Entry::Code]->setText(item.code);
    m_ui.txtitem[Entry::Description]->setText(item.descr);
    m_ui.txtitem[Entry::Qty]->setText(QString::number(item.defQty));
    showPrice(m_ui.txtitem[Entry::Price], item.price);
    m_ui.txtitem[Entry::Pack]->setText(QString::number(item.packQty));
    entryBoxState(Entry::Code, false);
    entryBoxState(Entry::Qty, true);
    focusOn(m_ui.txtitem[Entry::Qty]);
}

void OrderForm::PromptUnknownItem() {
    UnknownItemState();
    m_ui.lblinfo->setText(QStringLiteral("Please enter a description, price and pack quantity for this unknown item"));
    focusOn(m_ui.txtitem[Entry::Description]);
}

bool OrderForm::ValidateUnknownItem() {
    QLineEdit* descr = m_ui.txtitem[Entry::Description];
    QLineEdit* price = m_ui.txtitem[Entry::Price];
    QLineEdit* pack = m_ui.txtitem[Entry::Pack];
    auto refuse = [this](QLineEdit* box, const QString& text, const QString& title) {
        context().prompter().message(text, title, MessageIcon::Exclamation);
        focusOn(box);
        return false;
    };
    if (descr->text().isEmpty())
        return refuse(descr,
                      QStringLiteral("You have not entered a description for this item, please enter an item "
                                     "description"),
                      QStringLiteral("Invalid description"));
    if (price->text().isEmpty())
        price->setText(QStringLiteral("0.00"));
    // One decimal point at most: the digits alone must be a number, and so must the whole.
    const QString digits = QString(price->text()).remove(QLatin1Char('.'));
    const auto amount = Money::parse(price->text());
    if (!Money::parse(digits) || !amount)
        return refuse(price,
                      QStringLiteral("You have not entered a valid price for this item, please enter an valid price"),
                      QStringLiteral("Invalid price"));
    showPrice(price, *amount);
    if (pack->text().isEmpty())
        pack->setText(QStringLiteral("1"));
    if (!wholeNumber(pack->text()))
        return refuse(pack,
                      QStringLiteral("You have not entered a valid pack quantity for this item, please enter an "
                                     "valid pack quantity"),
                      QStringLiteral("Invalid pack quantity"));
    return true;
}

void OrderForm::SaveUnknownItem() {
    CatalogueItem item;
    item.code = m_ui.txtitem[Entry::Code]->text();
    item.descr = m_ui.txtitem[Entry::Description]->text();
    item.price = Money::parse(m_ui.txtitem[Entry::Price]->text()).value_or(Money());
    item.packQty = int(wholeNumber(m_ui.txtitem[Entry::Pack]->text()).value_or(1));
    item.defQty = 1;
    if (const Status saved = m_desk.keepUnknownItem(item); !saved)
        reportFailure(QStringLiteral("The item %1 could not be added to the catalogue.").arg(item.code),
                      saved.message());
}

void OrderForm::ClearItemEntry() {
    for (QLineEdit* box : m_ui.txtitem)
        clearBox(box);
}

void OrderForm::ReadyForNextItem() {
    entryBoxState(Entry::Code, true);
    entryBoxState(Entry::Qty, false);
    focusOn(m_ui.txtitem[Entry::Code]);
}

void OrderForm::UnknownItemState() {
    entryBoxState(Entry::Code, false);
    entryBoxState(Entry::Description, true);
    entryBoxState(Entry::Qty, false);
    entryBoxState(Entry::Price, true);
    entryBoxState(Entry::Pack, true);
}

void OrderForm::QuantityState() {
    for (int i = 0; i < 5; ++i)
        entryBoxState(i, i == Entry::Qty);
}

void OrderForm::FindItemByDescription() {
    // The find window restores the main window's status and our menu mask once it has closed.
    const std::optional<QString> chosen = Find::findItemDescription(context(), this, Find::OrderFormMask);
    if (!chosen || chosen->isEmpty()) {
        focusOn(m_ui.txtitem[Entry::Code]);
        return;
    }
    if (!m_desk.itemsOpen())
        OpenItems();
    const auto item = m_desk.catalogue->findByDescription(*chosen);
    if (!item) {
        context().prompter().message(QStringLiteral("Item description not found."),
                                     QStringLiteral("Item Description Error"), MessageIcon::Critical);
        return;
    }
    FillFromItem(*item);
}

} // namespace ordwell
