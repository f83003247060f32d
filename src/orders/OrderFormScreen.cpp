// The order form's screen-state routines; every screen state is built from these.
#include "orders/OrderForm.h"

#include "common/FormHelpers.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

namespace ordwell {

namespace {
void enableWithTabStop(QWidget* widget, bool on) {
    widget->setEnabled(on);
    widget->setFocusPolicy(on ? Qt::StrongFocus : Qt::NoFocus);
}
// One screen: for each routine, on (1), off (0) or left as it is (-1).
struct ScreenRow {
    DeskScreen screen;
    signed char navigation, entryRow, findItem, cancelShown, receive, startShown, editShown, headerLocked, entryLocked,
        gridTabStop, cancelEnabled, startEnabled, editEnabled, mainButtons;
};

// clang-format off
constexpr ScreenRow Screens[] = {
    //                                nav ent fnd can rcv sta edi hdL enL grd enC enS enE main
    {DeskScreen::Idle,           0,  0, -1,  0,  0,  0,  0,  1,  1,  0, -1, -1, -1, -1},
    {DeskScreen::Browsing,       1,  0, -1,  0,  0,  0,  0,  1,  1,  0,  0,  0,  0,  0},
    {DeskScreen::ShownForAction, 0,  0, -1,  1,  0,  0,  0,  1,  1,  0,  1, -1, -1, -1},
    {DeskScreen::TakenUp,       -1,  1, -1,  1, -1,  1,  1,  1,  0,  1, -1,  0,  1, -1},
    {DeskScreen::Recovered,      0,  1, -1,  1,  0,  1,  1,  1,  0,  1,  1,  0,  1,  1},
    {DeskScreen::Receiving,      0,  1,  0,  0,  1,  0,  0,  1,  1,  1,  1,  0, -1,  1},
    {DeskScreen::NewHeader,      0,  1, -1,  1,  0,  1,  1,  0,  1,  0,  0,  1, -1,  1},
    {DeskScreen::Entering,      -1, -1, -1, -1, -1, -1, -1,  1,  0,  1, -1,  0,  1, -1},
    {DeskScreen::EditingHeader, -1, -1, -1, -1, -1, -1, -1,  0,  1,  0, -1,  1,  0, -1},
};
// clang-format on

} // namespace

void OrderForm::applyScreen(DeskScreen screen) {
    m_desk.screen = screen;
    for (const ScreenRow& row : Screens) {
        if (row.screen != screen)
            continue;
        const auto set = [this](signed char value, void (OrderForm::*routine)(bool)) {
            if (value >= 0)
                (this->*routine)(value == 1);
        };
        set(row.mainButtons, &OrderForm::EnableMainButtons);
        set(row.navigation, &OrderForm::ShowNavigationBar);
        set(row.entryRow, &OrderForm::ShowEntryRow);
        set(row.findItem, &OrderForm::ShowFindItem);
        set(row.cancelShown, &OrderForm::ShowCancelOrder);
        set(row.receive, &OrderForm::ShowReceiveControls);
        set(row.startShown, &OrderForm::ShowStartOrder);
        set(row.editShown, &OrderForm::ShowEditOrder);
        set(row.headerLocked, &OrderForm::LockHeader);
        set(row.entryLocked, &OrderForm::LockEntryRow);
        set(row.gridTabStop, &OrderForm::SetGridTabStop);
        set(row.cancelEnabled, &OrderForm::EnableCancelOrder);
        set(row.startEnabled, &OrderForm::EnableStartOrder);
        set(row.editEnabled, &OrderForm::EnableEditOrder);
        return;
    }
}

void OrderForm::ShowNavigationBar(bool on) {
    for (QPushButton* b : m_ui.cmdnavbutton)
        b->setVisible(on);
    m_ui.lblnavinfo->setVisible(on);
    m_ui.cmdcancelld->setVisible(on);
}

void OrderForm::ShowEntryRow(bool on) {
    for (int i = 0; i < 5; ++i) {
        m_ui.lblitem[i]->setVisible(on);
        m_ui.txtitem[i]->setVisible(on);
    }
    m_ui.cmdfinditem->setVisible(on);
}

void OrderForm::ShowReceiveControls(bool on) {
    m_ui.cmdrecv->setVisible(on);
    m_ui.txtrcvqty->setVisible(on);
    m_ui.lblrcvqty->setVisible(on);
    m_ui.lblitem[Entry::Qty]->setText(on ? QStringLiteral("Rcv") : QStringLiteral("Qty"));
    if (ActivatedOnce)
        sizeGridColumns();
}

void OrderForm::ShowStartOrder(bool on) {
    m_ui.cmdstartorder->setVisible(on);
}

void OrderForm::ShowEditOrder(bool on) {
    m_ui.cmdedit->setVisible(on);
}

void OrderForm::ShowFindItem(bool on) {
    m_ui.cmdfinditem->setVisible(on);
    if (ActivatedOnce)
        sizeGridColumns();
}

void OrderForm::ShowCancelOrder(bool on) {
    m_ui.cmdcancelord->setVisible(on);
}

void OrderForm::EnableStartOrder(bool on) {
    enableWithTabStop(m_ui.cmdstartorder, on);
}

void OrderForm::EnableEditOrder(bool on) {
    enableWithTabStop(m_ui.cmdedit, on);
}

void OrderForm::EnableSaveUnknown(bool on) {
    enableWithTabStop(m_ui.chkunknown, on);
}

void OrderForm::EnableCancelOrder(bool on) {
    m_ui.cmdcancelord->setEnabled(on);
}

void OrderForm::EnableMainButtons(bool on) {
    for (QPushButton* b : m_ui.cmdbutton)
        b->setEnabled(on);
}

void OrderForm::SetGridTabStop(bool on) {
    m_ui.flxitems->setFocusPolicy(on ? Qt::StrongFocus : Qt::ClickFocus);
}

void OrderForm::headerBoxState(int index, bool locked) {
    QLineEdit* box = m_ui.txtheader[index];
    const QString tag = box->property("tag").toString();
    const bool closed = locked || tag == QLatin1String("2");
    lockBox(box, closed, tag == QLatin1String("1"));
    box->setFocusPolicy(closed ? Qt::ClickFocus : Qt::StrongFocus);
}

void OrderForm::LockHeader(bool locked) {
    for (int i = 0; i < 8; ++i)
        headerBoxState(i, locked);
    if (locked) {
        if (m_ui.cmdstartorder->isVisibleTo(this))
            m_ui.cmdstartorder->setEnabled(false);
        if (m_ui.cmdedit->isVisibleTo(this))
            m_ui.cmdedit->setEnabled(true);
        m_ui.chkunknown->setEnabled(false);
    } else {
        if (m_ui.cmdedit->isVisibleTo(this))
            m_ui.cmdedit->setEnabled(false);
        m_ui.chkunknown->setEnabled(true);
    }
    m_ui.cmdcancelord->setEnabled(true);
    if (!locked)
        focusOn(m_ui.txtheader[Header::ContactName]);
}

void OrderForm::entryBoxState(int index, bool open) {
    QLineEdit* box = m_ui.txtitem[index];
    lockBox(box, !open, true);
    box->setFocusPolicy(open ? Qt::StrongFocus : Qt::ClickFocus);
}

void OrderForm::LockEntryRow(bool locked) {
    if (!m_ui.txtitem[Entry::Code]->isVisibleTo(this))
        return;
    for (int i = 0; i < 5; ++i)
        entryBoxState(i, !locked && m_ui.txtitem[i]->property("tag").toString() == QLatin1String("1"));
    m_ui.cmdfinditem->setEnabled(!locked);
    if (!locked)
        focusOn(m_ui.txtitem[Entry::Code]);
}

} // namespace ordwell
