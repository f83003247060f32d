#pragma once

#include "PeppolParty.h"

#include <QDialog>
#include <QSqlDatabase>
#include <array>

class QLineEdit;
class QPushButton;

namespace ordwell {

class Prompter;

// frmpeppol: the organisation's or a vendor's electronic ordering details, the ones a Peppol
// order names its buyer and seller by. Opened from the System Defaults and vendor windows.
// Enter moves from box to box and from the last one to "&Save".
class PeppolPartyDialog : public QDialog {
    Q_OBJECT
public:
    PeppolPartyDialog(QSqlDatabase db, PeppolSide side, const QString& partyName, Prompter& prompter,
                      QWidget* parent = nullptr);

    // "txtpeppol_N", N a PeppolRules::Field; the currency box is the organisation's only.
    QLineEdit* box(int field) const { return m_boxes.at(static_cast<std::size_t>(field)); }

    // Checks what is typed and stores it; on a problem says so, puts the focus on the box to
    // put right and keeps the window open.
    bool save();

private:
    PeppolParty typed() const;

    QSqlDatabase m_db;
    PeppolSide m_side;
    Prompter& m_prompter;
    std::array<QLineEdit*, PeppolRules::FieldCount> m_boxes{};
    QPushButton* m_save = nullptr;
};

} // namespace ordwell
