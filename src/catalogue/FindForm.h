#pragma once

#include "FindListModel.h"

#include <QDialog>
#include <memory>

class QLabel;
class QLineEdit;
class QListView;
class QPushButton;

namespace ordwell {

// frmfind: picks one entry of a long one-column list by typing its start or by scrolling, and
// double-clicking it. Callers normally go through FindRecord (Find.h) rather than this class.
class FindForm : public QDialog {
    Q_OBJECT
public:
    explicit FindForm(QWidget* parent = nullptr);
    ~FindForm() override;

    void SetFindPrompt(const QString& text);
    // Opens the list on `db`; a failure leaves it empty.
    Status SetFindQuery(const QSqlDatabase& db, const FindQuery& query);

    // The entry double-clicked; empty after Cancel or the close box.
    const QString& FindResult() const { return m_result; }

protected:
    void showEvent(QShowEvent* event) override;
    // Cancel, Escape and the close box.
    void reject() override;

private:
    void fillList();
    void onTextChanged(const QString& text);
    void choose(const QModelIndex& index);
    void showDetail(const QModelIndex& current);

    QLabel* m_prompt = nullptr;
    QLineEdit* m_find = nullptr;
    QListView* m_list = nullptr;
    QLabel* m_click = nullptr;
    QLabel* m_count = nullptr;
    QLabel* m_detail = nullptr;
    QPushButton* m_cancel = nullptr;
    std::unique_ptr<FindListModel> m_model;
    QString m_result;
    bool m_filled = false;
};

} // namespace ordwell
