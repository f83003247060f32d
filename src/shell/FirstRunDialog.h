#pragma once

#include <QDialog>

class QPlainTextEdit;

namespace ordwell {

// frmfirstrun: the agreement shown once, before anything is created. Closing it by the close
// box counts as not agreeing.
class FirstRunDialog : public QDialog {
    Q_OBJECT
public:
    explicit FirstRunDialog(const QStringList& agreementLines, QWidget* parent = nullptr);

    bool agreed() const { return m_agreed; }
    QString agreementText() const;

private:
    QPlainTextEdit* m_text = nullptr;
    bool m_agreed = false;
};

} // namespace ordwell
