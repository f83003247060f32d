#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSettings;

namespace ordwell {

class Prompter;

// frmdbserver: where this workstation keeps its data, the data folder or a PostgreSQL server.
// "&Test Connection" connects once and says what it found; "&Save" keeps the choice in the
// settings for the next start. A password is never kept: libpq's password file holds it.
class DatabaseServerDialog : public QDialog {
    Q_OBJECT
public:
    // `inUse` says where the running program's data is ("the folder ...", "database ... on ...").
    DatabaseServerDialog(QSettings& settings, Prompter& prompter, const QString& inUse, QWidget* parent = nullptr);

    QLineEdit* connectionBox() const { return m_connection; }
    QLabel* resultLabel() const { return m_result; }

    // The buttons' work, callable without a click.
    void testConnection();
    bool save();

private:
    void followChoice();
    QString chosenConnection() const;

    QSettings& m_settings;
    Prompter& m_prompter;
    QRadioButton* m_files = nullptr;
    QRadioButton* m_server = nullptr;
    QLineEdit* m_connection = nullptr;
    QLabel* m_result = nullptr;
    QPushButton* m_test = nullptr;
};

} // namespace ordwell
