#include "FindForm.h"
#include "common/FormHelpers.h"
#include "common/PendingEvents.h"

#include "common/WaitCursor.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

namespace ordwell {

FindForm::FindForm(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmfind"));
    setWindowTitle(QStringLiteral("Find Record"));

    m_prompt = new QLabel(this);
    m_prompt->setObjectName(QStringLiteral("lbltable"));
    m_find = new QLineEdit(this);
    m_find->setObjectName(QStringLiteral("txtfind"));
    m_prompt->setBuddy(m_find);
    m_list = new QListView(this);
    m_list->setObjectName(QStringLiteral("List1"));
    m_list->setAccessibleName(QStringLiteral("Records"));
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    // Every row the same height: the view then never measures a million rows.
    m_list->setUniformItemSizes(true);
    m_list->setEnabled(false);
    m_click = new QLabel(QStringLiteral("Double Click to Select an Item"), this);
    m_click->setObjectName(QStringLiteral("lblclick"));
    m_count = new QLabel(this);
    m_count->setObjectName(QStringLiteral("lblcount"));
    m_count->setAccessibleDescription(QStringLiteral("Number of records in the list"));
    // The chosen entry's detail (an item's GTIN); its text is what a screen reader reads.
    m_detail = new QLabel(this);
    m_detail->setObjectName(QStringLiteral("lbldetail"));
    m_detail->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_detail->setVisible(false);
    m_cancel = new QPushButton(QStringLiteral("&Cancel"), this);
    m_cancel->setObjectName(QStringLiteral("cmdcancel"));
    // Enter in the search box chooses nothing, so no button may be the default.
    m_cancel->setAutoDefault(false);
    pressWithEnter(m_cancel);

    connect(m_find, &QLineEdit::textChanged, this, &FindForm::onTextChanged);
    connect(m_list, &QListView::doubleClicked, this, &FindForm::choose);
    connect(m_cancel, &QPushButton::clicked, this, &FindForm::reject);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(m_count, 1);
    bottom->addWidget(m_cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_prompt);
    layout->addWidget(m_find);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_click);
    layout->addWidget(m_detail);
    layout->addLayout(bottom);
    resize(420, 420);
}

FindForm::~FindForm() = default;

void FindForm::SetFindPrompt(const QString& text) {
    m_prompt->setText(text);
}

Status FindForm::SetFindQuery(const QSqlDatabase& db, const FindQuery& query) {
    m_list->setModel(nullptr);
    m_model = std::make_unique<FindListModel>(db, query);
    m_filled = false;
    m_detail->setVisible(!query.detailColumn.isEmpty());
    m_detail->setAccessibleDescription(query.detailCaption);
    m_detail->clear();
    return m_model->open();
}

void FindForm::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!m_filled)
        fillList();
    m_find->setFocus();
}

void FindForm::fillList() {
    m_filled = true;
    m_list->setEnabled(false);
    const int rows = m_model ? m_model->rowCount() : 0;
    if (rows > 0) {
        WaitCursor wait;
        m_list->setModel(m_model.get());
        m_list->setEnabled(true);
        connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
                [this](const QModelIndex& current) { showDetail(current); });
        letPendingEventsRun();
    }
    m_count->setText(QStringLiteral("There are %1 records").arg(rows));
}

void FindForm::onTextChanged(const QString& text) {
    if (!m_model || !m_list->model())
        return;
    const QModelIndex current = m_list->currentIndex();
    int row = m_model->rowForPrefix(text, current.isValid() ? current.row() : -1);
    if (const auto& query = m_model->query(); query.detailFromTyped) {
        if (const QString detail = query.detailFromTyped(text); !detail.isEmpty()) {
            if (const auto entry = m_model->entryWithDetail(detail))
                row = m_model->rowOf(*entry);
        }
    }
    if (row < 0 || (current.isValid() && row == current.row()))
        return;
    const QModelIndex index = m_model->index(row);
    m_list->setCurrentIndex(index);
    m_list->scrollTo(index, QAbstractItemView::PositionAtTop);
}

void FindForm::showDetail(const QModelIndex& current) {
    if (!m_model || m_model->query().detailColumn.isEmpty())
        return;
    const QString caption = m_model->query().detailCaption;
    const QString detail = current.isValid() ? m_model->detailFor(m_model->textAt(current.row())) : QString();
    m_detail->setText(detail.isEmpty() ? QStringLiteral("%1: none").arg(caption)
                                       : QStringLiteral("%1: %2").arg(caption, detail));
}

void FindForm::choose(const QModelIndex& index) {
    if (!index.isValid())
        return;
    m_result = m_model->textAt(index.row());
    m_list->setModel(nullptr);
    m_model.reset();
    accept();
}

void FindForm::reject() {
    // Cancel, Escape and the close box all end the same way: nothing chosen.
    m_result.clear();
    m_list->setModel(nullptr);
    m_model.reset();
    QDialog::reject();
}

} // namespace ordwell
