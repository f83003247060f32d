// The order form's controls: names, captions, tags, lengths and their places on the form.
#include "orders/OrderForm.h"

#include "common/BoxLimit.h"
#include "common/FormHelpers.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace ordwell {

namespace {

struct BoxInfo {
    const char* caption;
    int maxLength; // 0: no limit
    const char* tag;
    const char* description; // for assistive technology where captions repeat or say little
};

const std::array<BoxInfo, 8> HeaderBoxes = {{
    {"Order Number", 10, "2", nullptr},
    {"Order Date", 0, "2", nullptr},
    {"Contact Name", 28, "", nullptr},
    {"Reference", 28, "", nullptr},
    {"Notes", 100, "", "First line of notes"},
    {"Notes", 100, "", "Second line of notes"},
    {"Status", 0, "2", nullptr},
    {"Total Value", 0, "2", nullptr},
}};

const std::array<BoxInfo, 5> EntryBoxes = {{
    {"Code", ScanLength, "1", "Item code or barcode"},
    {"Decription", 55, "2", "Item description"},
    {"Qty", 5, "2", "Quantity"},
    {"Unit Price", 8, "2", nullptr},
    {"Pack", 5, "2", "Pack quantity"},
}};

const std::array<const char*, 6> MainCaptions = {"&New Order",    "&Load Order",    "&Print Order",
                                                 "&Export Order", "&Receive Order", "E&xit"};

struct NavInfo {
    const char* caption;
    const char* accessibleName;
};
const std::array<NavInfo, 5> NavButtons = {{
    {"|<", "First order"},
    {"<", "Previous order"},
    {"Select", nullptr},
    {">", "Next order"},
    {">|", "Last order"},
}};

QPushButton* makeButton(QWidget* parent, const QString& name, const QString& caption) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    pressWithEnter(button);
    return button;
}

QLineEdit* makeBox(QWidget* parent, const QString& name, const BoxInfo& info) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    if (info.maxLength > 0)
        limitBox(box, info.maxLength);
    box->setProperty("tag", QString::fromLatin1(info.tag));
    if (info.description)
        box->setAccessibleDescription(QString::fromLatin1(info.description));
    return box;
}

} // namespace

void OrderForm::buildControls() {
    auto* outer = new QVBoxLayout(this);

    // The navigation bar along the top, for browsing a list of orders.
    auto* nav = new QHBoxLayout;
    for (int i = 0; i < 5; ++i) {
        auto* button =
            makeButton(this, QStringLiteral("cmdnavbutton_%1").arg(i), QString::fromLatin1(NavButtons[i].caption));
        if (NavButtons[i].accessibleName)
            button->setAccessibleName(QString::fromLatin1(NavButtons[i].accessibleName));
        m_ui.cmdnavbutton[i] = button;
        nav->addWidget(button);
    }
    m_ui.lblnavinfo = new QLabel(this);
    m_ui.lblnavinfo->setObjectName(QStringLiteral("lblnavinfo"));
    m_ui.lblnavinfo->setAccessibleDescription(QStringLiteral("Position in the list of orders"));
    m_ui.lblnavinfo->setMinimumWidth(140);
    nav->addWidget(m_ui.lblnavinfo);
    m_ui.cmdcancelld = makeButton(this, QStringLiteral("cmdcancelld"), QStringLiteral("Cancel"));
    nav->addWidget(m_ui.cmdcancelld);
    nav->addStretch(1);
    outer->addLayout(nav);

    // The header.
    auto* header = new QGridLayout;
    for (int i = 0; i < 8; ++i) {
        m_ui.txtheader[i] = makeBox(this, QStringLiteral("txtheader_%1").arg(i), HeaderBoxes[i]);
        m_ui.lblheader[i] = new QLabel(QString::fromLatin1(HeaderBoxes[i].caption), this);
        m_ui.lblheader[i]->setObjectName(QStringLiteral("lblheader_%1").arg(i));
        m_ui.lblheader[i]->setBuddy(m_ui.txtheader[i]);
    }
    // Number, date, status and total across the top; the texts the user types below them.
    const int topRow[4] = {Header::OrderNumber, Header::OrderDate, Header::Status, Header::Total};
    for (int c = 0; c < 4; ++c) {
        header->addWidget(m_ui.lblheader[topRow[c]], 0, c);
        header->addWidget(m_ui.txtheader[topRow[c]], 1, c);
    }
    header->addWidget(m_ui.lblheader[Header::ContactName], 2, 0, 1, 2);
    header->addWidget(m_ui.lblheader[Header::Reference], 2, 2, 1, 2);
    header->addWidget(m_ui.txtheader[Header::ContactName], 3, 0, 1, 2);
    header->addWidget(m_ui.txtheader[Header::Reference], 3, 2, 1, 2);
    header->addWidget(m_ui.lblheader[Header::Notes1], 4, 0, 1, 4);
    header->addWidget(m_ui.txtheader[Header::Notes1], 5, 0, 1, 4);
    // One caption shows for both note lines; the second keeps its own for assistive technology.
    m_ui.lblheader[Header::Notes2]->setVisible(false);
    header->addWidget(m_ui.txtheader[Header::Notes2], 6, 0, 1, 4);
    m_ui.txtheader[Header::Notes2]->setAccessibleName(QStringLiteral("Notes"));

    // The header's own buttons, at its right.
    auto* side = new QVBoxLayout;
    m_ui.cmdstartorder = makeButton(this, QStringLiteral("cmdstartorder"), QStringLiteral("Start Order"));
    m_ui.cmdedit = makeButton(this, QStringLiteral("cmdedit"), QStringLiteral("Edit Order Info."));
    m_ui.cmdcancelord = makeButton(this, QStringLiteral("cmdcancelord"), QStringLiteral("Cancel Order"));
    m_ui.chkunknown = new QCheckBox(QStringLiteral("Save Unknown Items"), this);
    m_ui.chkunknown->setObjectName(QStringLiteral("chkunknown"));
    side->addWidget(m_ui.cmdstartorder);
    side->addWidget(m_ui.cmdedit);
    side->addWidget(m_ui.cmdcancelord);
    side->addWidget(m_ui.chkunknown);
    side->addStretch(1);
    auto* headerRow = new QHBoxLayout;
    headerRow->addLayout(header, 1);
    headerRow->addSpacing(12);
    headerRow->addLayout(side);
    outer->addLayout(headerRow);

    m_ui.lblinfo = new QLabel(this);
    m_ui.lblinfo->setObjectName(QStringLiteral("lblinfo"));
    m_ui.lblinfo->setAccessibleDescription(QStringLiteral("What to do next"));
    QFont bold = m_ui.lblinfo->font();
    bold.setBold(true);
    m_ui.lblinfo->setFont(bold);
    outer->addWidget(m_ui.lblinfo);

    // The entry row: captions over boxes, each over its column of the grid.
    auto* entry = new QGridLayout;
    entry->setHorizontalSpacing(0);
    m_ui.entrySpacer = new QWidget(this);
    entry->addWidget(m_ui.entrySpacer, 1, 0);
    for (int i = 0; i < 5; ++i) {
        m_ui.txtitem[i] = makeBox(this, QStringLiteral("txtitem_%1").arg(i), EntryBoxes[i]);
        m_ui.lblitem[i] = new QLabel(QString::fromLatin1(EntryBoxes[i].caption), this);
        m_ui.lblitem[i]->setObjectName(QStringLiteral("lblitem_%1").arg(i));
        m_ui.lblitem[i]->setBuddy(m_ui.txtitem[i]);
        entry->addWidget(m_ui.lblitem[i], 0, i + 1);
        entry->addWidget(m_ui.txtitem[i], 1, i + 1);
    }
    m_ui.txtitem[Entry::Price]->setText(QStringLiteral("0.00"));
    m_ui.cmdfinditem = makeButton(this, QStringLiteral("cmdfinditem"), QStringLiteral("Find Item"));
    entry->addWidget(m_ui.cmdfinditem, 1, 6);
    m_ui.lblrcvqty = new QLabel(QStringLiteral("Rcvd"), this);
    m_ui.lblrcvqty->setObjectName(QStringLiteral("lblrcvqty"));
    m_ui.txtrcvqty = new QLineEdit(this);
    m_ui.txtrcvqty->setObjectName(QStringLiteral("txtrcvqty"));
    m_ui.txtrcvqty->setMaxLength(5);
    m_ui.txtrcvqty->setMaximumWidth(m_ui.txtrcvqty->fontMetrics().horizontalAdvance(QStringLiteral("999999")) + 16);
    m_ui.lblrcvqty->setBuddy(m_ui.txtrcvqty);
    m_ui.cmdrecv = makeButton(this, QStringLiteral("cmdrecv"), QStringLiteral("Receive All"));
    entry->addWidget(m_ui.lblrcvqty, 0, 7);
    entry->addWidget(m_ui.txtrcvqty, 1, 7);
    entry->addWidget(m_ui.cmdrecv, 1, 8);
    entry->setColumnStretch(9, 1);
    outer->addLayout(entry);

    // The lines: a real item view, so every cell can be read out.
    m_ui.flxitems = new QTableWidget(1000, 6, this);
    m_ui.flxitems->setObjectName(QStringLiteral("flxitems"));
    m_ui.flxitems->setAccessibleName(QStringLiteral("Order lines"));
    m_ui.flxitems->setAccessibleDescription(
        QStringLiteral("Line number, code, description, quantity, unit price and pack of each line"));
    m_ui.flxitems->setHorizontalHeaderLabels({QStringLiteral("Line"), QStringLiteral("Code"),
                                              QStringLiteral("Decription"), QStringLiteral("Qty"),
                                              QStringLiteral("Unit Price"), QStringLiteral("Pack")});
    m_ui.flxitems->horizontalHeader()->setVisible(false);
    m_ui.flxitems->verticalHeader()->setVisible(false);
    m_ui.flxitems->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_ui.flxitems->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_ui.flxitems->setSelectionMode(QAbstractItemView::SingleSelection);
    m_ui.flxitems->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    m_ui.flxitems->setWordWrap(false);
    m_ui.flxitems->setMinimumHeight(m_ui.flxitems->verticalHeader()->defaultSectionSize() * 10 + 4);
    outer->addWidget(m_ui.flxitems, 1);

    // The main button row along the bottom.
    auto* buttons = new QHBoxLayout;
    for (int i = 0; i < 6; ++i) {
        m_ui.cmdbutton[i] =
            makeButton(this, QStringLiteral("cmdbutton_%1").arg(i), QString::fromLatin1(MainCaptions[i]));
        buttons->addWidget(m_ui.cmdbutton[i]);
        if (i == MainButton::ExportOrder) {
            m_ui.cmdemail = makeButton(this, QStringLiteral("cmdemail"), QStringLiteral("E-&mail Order..."));
            buttons->addWidget(m_ui.cmdemail);
            m_ui.cmdpeppol =
                makeButton(this, QStringLiteral("cmdpeppol"), QStringLiteral("Export as Peppol &Order..."));
            buttons->addWidget(m_ui.cmdpeppol);
        }
    }
    outer->addLayout(buttons);

    // Tab order as the boxes are filled.
    QList<QWidget*> order;
    for (int i : {2, 3, 4, 5})
        order << m_ui.txtheader[i];
    order << m_ui.cmdstartorder << m_ui.cmdedit << m_ui.cmdcancelord << m_ui.chkunknown;
    for (QLineEdit* box : m_ui.txtitem)
        order << box;
    order << m_ui.cmdfinditem << m_ui.txtrcvqty << m_ui.cmdrecv << m_ui.flxitems;
    for (QPushButton* b : m_ui.cmdbutton) {
        order << b;
        if (b == m_ui.cmdbutton[MainButton::ExportOrder])
            order << m_ui.cmdemail << m_ui.cmdpeppol;
    }
    for (int i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
    resize(960, 680);
}

void OrderForm::alignEntryRow() {
    QTableWidget* grid = m_ui.flxitems;
    m_ui.entrySpacer->setFixedWidth(grid->columnWidth(0) + grid->frameWidth());
    for (int i = 0; i < 5; ++i) {
        const int width = grid->columnWidth(i + 1);
        m_ui.txtitem[i]->setFixedWidth(width);
        m_ui.lblitem[i]->setFixedWidth(width);
    }
}

void OrderForm::resizeEvent(QResizeEvent* event) {
    ToolWindow::resizeEvent(event);
    if (ActivatedOnce)
        sizeGridColumns();
}

} // namespace ordwell
