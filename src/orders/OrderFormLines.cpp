// The lines grid, the shown order's lines and the running total.
#include "orders/OrderForm.h"

#include "common/BoxLimit.h"
#include "common/FormHelpers.h"
#include "orders/OrderWords.h"

#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>

namespace ordwell {

namespace {
constexpr int GridRows = 1000;
constexpr int GridColumns = 6;

QColor statusColour(const QString& status) {
    if (status == OrderStatus::Cancelled)
        return QColor(255, 0, 0);
    if (status == OrderStatus::Live)
        return QColor(255, 255, 255);
    if (status == OrderStatus::Received)
        return QColor(0, 255, 0);
    return {};
}

QTableWidgetItem* cell(QTableWidget* grid, int row, int column) {
    QTableWidgetItem* item = grid->item(row, column);
    if (!item) {
        item = new QTableWidgetItem;
        item->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        grid->setItem(row, column, item);
    }
    return item;
}
} // namespace

void OrderForm::sizeGridColumns() {
    QTableWidget* grid = m_ui.flxitems;
    // The entry row's boxes sit over the grid's columns with its buttons to their right: the
    // columns leave room for the buttons shown, or the row would widen the form without end.
    int buttons = 0;
    for (QWidget* control : {static_cast<QWidget*>(m_ui.cmdfinditem), static_cast<QWidget*>(m_ui.txtrcvqty),
                             static_cast<QWidget*>(m_ui.cmdrecv)})
        if (!control->isHidden())
            buttons += qMin(control->sizeHint().width(), control->maximumWidth());
    const int w = qMax(160, qMin(grid->viewport()->width() - 10, grid->width() - 2 * grid->frameWidth() - buttons));
    const int widths[GridColumns] = {w / 16, w / 8, w / 2, w / 16, w / 8, w / 16};
    for (int c = 0; c < GridColumns; ++c)
        grid->setColumnWidth(c, widths[c]);
    alignEntryRow();
}

void OrderForm::SetupLineGrid() {
    QTableWidget* grid = m_ui.flxitems;
    grid->setUpdatesEnabled(false);
    grid->setRowCount(GridRows);
    grid->setColumnCount(GridColumns);
    sizeGridColumns();
    // Column 0 holds the row numbers, like a fixed column; row 0 is never used.
    const QBrush fixed = grid->palette().button();
    for (int r = 0; r < GridRows; ++r) {
        for (int c = 0; c < GridColumns; ++c)
            cell(grid, r, c);
        QTableWidgetItem* number = grid->item(r, 0);
        number->setBackground(fixed);
        number->setFlags(Qt::ItemIsEnabled);
    }
    grid->setUpdatesEnabled(true);
    ClearLineGrid();
}

void OrderForm::ClearLineGrid() {
    QTableWidget* grid = m_ui.flxitems;
    if (grid->rowCount() < GridRows || !grid->item(0, 0))
        return; // not laid out yet
    grid->setUpdatesEnabled(false);
    for (int r = 0; r < GridRows; ++r) {
        grid->item(r, 0)->setText(r == 0 ? QString() : QString::number(r));
        for (int c = 1; c < GridColumns; ++c) {
            QTableWidgetItem* item = grid->item(r, c);
            item->setText(QString());
            item->setData(Qt::BackgroundRole, QVariant());
        }
    }
    // No highlight is left on a row that no longer shows a line.
    grid->clearSelection();
    grid->scrollToTop();
    grid->setUpdatesEnabled(true);
}

void OrderForm::ShowLineRow(int row, const QString& code, const QString& description, int quantity, Money price,
                            int pack, const QString& status) {
    QTableWidget* grid = m_ui.flxitems;
    if (row < 1 || row >= grid->rowCount() || !grid->item(row, 0))
        return;
    grid->setCurrentCell(row, 1, QItemSelectionModel::NoUpdate);
    const QColor colour = statusColour(status);
    const QString texts[] = {code, description, QString::number(quantity), price.toString(), QString::number(pack)};
    for (int c = 1; c < GridColumns; ++c) {
        QTableWidgetItem* item = grid->item(row, c);
        if (colour.isValid())
            item->setBackground(colour);
        item->setText(texts[c - 1]);
    }
    // Keep the written row in view at the bottom.
    if (row >= 9)
        grid->verticalScrollBar()->setValue(row - 8);
}

void OrderForm::OpenOrderLines() {
    const auto lines = m_desk.openLines(vendorDb(), m_desk.shown);
    if (!lines)
        reportFailure(QStringLiteral("The order's lines could not be read."), lines.message());
}

void OrderForm::CloseOrderLines() {
    m_desk.closeLines();
}

void OrderForm::OpenItems() {
    m_desk.openItems(vendorDb());
}

void OrderForm::CloseItems() {
    m_desk.closeItems();
}

void OrderForm::LoadOrderLines() {
    const auto lines = m_desk.openLines(vendorDb(), m_desk.shown);
    if (!lines) {
        reportFailure(QStringLiteral("The order's lines could not be read."), lines.message());
        return;
    }
    const bool receiving = m_desk.mode == DeskMode::Receive;
    m_ui.flxitems->setUpdatesEnabled(false);
    for (const OrderLine& line : lines.value()) {
        const int shown = receiving ? line.qty - line.recvQty : line.qty;
        ShowLineRow(line.line, line.code, line.descr, shown, line.price, line.packQty, line.status);
    }
    m_ui.flxitems->setUpdatesEnabled(true);
}

void OrderForm::AddOrUpdateLine() {
    const qint64 qty = QLocale().toLongLong(m_ui.txtitem[Entry::Qty]->text().trimmed());
    const Money price = Money::parse(m_ui.txtitem[Entry::Price]->text()).value_or(Money());
    const int pack = QLocale().toInt(m_ui.txtitem[Entry::Pack]->text().trimmed());
    const auto change = m_desk.enterQuantity(qty, price, pack, m_ui.txtitem[Entry::Description]->text(), shownHeader());
    if (!change) {
        reportFailure(QStringLiteral("The line could not be stored; the order stays as last saved."), change.message());
        return;
    }
    if (!change->has_value())
        return;
    const OrderLine& line = (*change)->line;
    ShowLineRow(line.line, line.code, line.descr, line.qty, line.price, line.packQty, line.status);
    showTotal((*change)->total);
}

void OrderForm::LineRowChosen() {
    const OrderState state = ReadOrderStatus();
    if (state == OrderState::PartReceived) {
        ReceiveRowChosen(m_ui.flxitems->currentRow());
        return;
    }
    if (state != OrderState::Entered && state != OrderState::Printed && state != OrderState::Live)
        return;
    const int row = m_ui.flxitems->currentRow();
    auto text = [this, row](int column) {
        const QTableWidgetItem* item = row > 0 ? m_ui.flxitems->item(row, column) : nullptr;
        return item ? item->text() : QString();
    };
    if (text(1).isEmpty()) {
        focusOn(m_ui.txtitem[m_ui.txtitem[Entry::Code]->text().isEmpty() ? Entry::Code : Entry::Qty]);
        return;
    }
    m_desk.editingLine = true;
    m_ui.txtitem[Entry::Code]->setText(text(1));
    ResolveItemCode();
    if (!m_desk.currentItem || m_desk.currentItem->code != text(1)) {
        // The line's item has left the catalogue: the line can still be changed or cancelled.
        CatalogueItem gone;
        gone.code = text(1);
        gone.descr = text(2);
        gone.packQty = text(5).toInt();
        gone.price = Money::parse(text(4)).value_or(Money());
        m_desk.currentItem = gone;
        m_ui.txtitem[Entry::Code]->setText(gone.code);
        entryBoxState(Entry::Code, false);
        QuantityState();
    }
    for (int c = 1; c <= 4; ++c)
        showWhole(m_ui.txtitem[c], text(c + 1));
    focusOn(m_ui.txtitem[Entry::Qty]);
}

} // namespace ordwell
