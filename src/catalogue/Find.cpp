#include "Find.h"

#include "catalogue/ScanReading.h"
#include "common/PendingEvents.h"

#include "FindForm.h"
#include "app/AppContext.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QMdiArea>

namespace ordwell::Find {

namespace {
ScriptedFind::Answer& scripted() {
    static ScriptedFind::Answer answer;
    return answer;
}

// Over the main window's working area when there is one, else over the parent window.
void placeOver(QWidget* dialog, QWidget* parent) {
    QWidget* window = parent ? parent->window() : nullptr;
    if (!window)
        return;
    QWidget* area = window;
    if (auto* main = qobject_cast<QMainWindow*>(window); main && main->centralWidget())
        area = main->centralWidget();
    const QPoint centre = area->mapToGlobal(area->rect().center());
    dialog->move(centre - QPoint(dialog->width() / 2, dialog->height() / 2));
}
} // namespace

FindQuery itemDescriptions() {
    FindQuery query{QStringLiteral("items"), QStringLiteral("descr")};
    query.detailColumn = QStringLiteral("gtin");
    query.detailCaption = QStringLiteral("GTIN");
    query.keyColumn = QStringLiteral("code");
    // Only a complete product barcode with its right check digit is looked up.
    query.detailFromTyped = [](const QString& typed) {
        const QString digits = typed.trimmed();
        return Gtin::hasGtinLength(digits) && Gtin::checkDigitIsRight(digits) ? Gtin::to14(digits) : QString();
    };
    return query;
}

std::optional<QString> FindRecord(AppContext& context, QWidget* parent, const QString& prompt, const FindQuery& query) {
    if (scripted())
        return scripted()(prompt, query);
    FindForm form(parent ? parent->window() : nullptr);
    form.SetFindPrompt(prompt);
    if (Status opened = form.SetFindQuery(context.vendorDb(), query); !opened)
        context.prompter().message(opened.message(), QString(), MessageIcon::Critical);
    placeOver(&form, parent);
    form.exec();
    if (form.FindResult().isEmpty())
        return std::nullopt;
    return form.FindResult();
}

void RestoreAfterFind(AppContext& context, const QString& mask) {
    letPendingEventsRun();
    context.ShowStatus(context.CurrentVendorName);
    context.ApplyMenuMask(mask);
}

std::optional<QString> findItemDescription(AppContext& context, QWidget* parent, const QString& mask) {
    auto chosen = FindRecord(context, parent, ItemPrompt, itemDescriptions());
    RestoreAfterFind(context, mask);
    return chosen;
}

ScriptedFind::ScriptedFind(Answer answer) : m_previous(std::move(scripted())) {
    scripted() = std::move(answer);
}

ScriptedFind::~ScriptedFind() {
    scripted() = std::move(m_previous);
}

} // namespace ordwell::Find
