#include "FirstRunDialog.h"

#include "common/FormHelpers.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace ordwell {

FirstRunDialog::FirstRunDialog(const QStringList& agreementLines, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmfirstrun"));
    setWindowTitle(QStringLiteral("Welcome to Ordwell"));
    setModal(true);

    auto* caption = new QLabel(QStringLiteral("Please read the licence agreement:"), this);
    m_text = new QPlainTextEdit(this);
    m_text->setObjectName(QStringLiteral("txtEULA"));
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    m_text->setAccessibleName(QStringLiteral("Licence agreement"));
    caption->setBuddy(m_text);
    QString text;
    for (const QString& line : agreementLines)
        text += line + QLatin1Char('\n');
    m_text->setPlainText(text);
    m_text->setMinimumSize(560, 320);

    auto* yes = new QPushButton(QStringLiteral("I &Agree"), this);
    yes->setObjectName(QStringLiteral("cmdEULAYes"));
    auto* no = new QPushButton(QStringLiteral("I &Do Not Agree"), this);
    no->setObjectName(QStringLiteral("cmdEULANo"));
    yes->setAutoDefault(false);
    no->setAutoDefault(false);
    pressWithEnter(yes);
    pressWithEnter(no);
    connect(yes, &QPushButton::clicked, this, [this] {
        m_agreed = true;
        accept();
    });
    connect(no, &QPushButton::clicked, this, [this] {
        m_agreed = false;
        reject();
    });

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(yes);
    buttons->addWidget(no);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(caption);
    layout->addWidget(m_text, 1);
    layout->addLayout(buttons);
    yes->setFocus();
}

QString FirstRunDialog::agreementText() const {
    return m_text->toPlainText();
}

} // namespace ordwell
