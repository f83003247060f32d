#include "UploadForm.h"
#include "common/FormHelpers.h"
#include "common/PendingEvents.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QMdiSubWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace ordwell {

namespace {
QLabel* valueLabel(QWidget* parent, const QString& name, const QString& role) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    // Shows a value: a screen reader reads its text; the description says what it is.
    label->setAccessibleDescription(role);
    return label;
}
} // namespace

UploadForm::UploadForm(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("frmupload"));
    setWindowTitle(QStringLiteral("Uploading Information"));
    setAttribute(Qt::WA_DeleteOnClose);

    m_countInfo[0] = new QLabel(QStringLiteral("Importing Line "), this);
    m_countInfo[0]->setObjectName(QStringLiteral("lblcountinfo_0"));
    m_countInfo[1] = new QLabel(QStringLiteral("of"), this);
    m_countInfo[1]->setObjectName(QStringLiteral("lblcountinfo_1"));
    m_count[0] = valueLabel(this, QStringLiteral("lblcount_0"), QStringLiteral("The line being imported"));
    m_count[1] = valueLabel(this, QStringLiteral("lblcount_1"), QStringLiteral("The number of lines in the file"));
    m_count[0]->setText(QStringLiteral("0"));
    m_count[1]->setText(QStringLiteral("0"));
    m_info = valueLabel(this, QStringLiteral("lblinfo"), QStringLiteral("Import status"));
    m_resetPrices = valueLabel(this, QStringLiteral("lblresetprices"), QStringLiteral("Expired prices"));
    m_resetPrices->setWordWrap(true);
    m_bar = new QProgressBar(this);
    m_bar->setObjectName(QStringLiteral("prgupload"));
    m_bar->setAccessibleName(QStringLiteral("Import progress"));
    m_bar->setRange(0, 0);
    m_bar->setValue(0);
    m_exit = new QPushButton(QStringLiteral("E&xit"), this);
    m_exit->setObjectName(QStringLiteral("cmdexit"));
    m_exit->setEnabled(false);
    pressWithEnter(m_exit);
    connect(m_exit, &QPushButton::clicked, this, [this] {
        if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget()))
            frame->close();
        else
            close();
    });

    auto* counts = new QHBoxLayout;
    counts->addWidget(m_countInfo[0]);
    counts->addWidget(m_count[0]);
    counts->addWidget(m_countInfo[1]);
    counts->addWidget(m_count[1]);
    counts->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_exit);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(counts);
    layout->addWidget(m_bar);
    layout->addWidget(m_info);
    layout->addWidget(m_resetPrices);
    layout->addLayout(buttons);
    setMinimumWidth(420);
}

void UploadForm::redraw() {
    // Lets the window paint; keys and clicks wait until the import has finished with the screen.
    letPendingEventsRun();
}

void UploadForm::showLineCount(int count) {
    m_count[1]->setText(QString::number(count));
    m_bar->setRange(0, qMax(count, 1));
    redraw();
}

void UploadForm::showLine(int line) {
    m_count[0]->setText(QString::number(line));
    m_bar->setValue(qMin(line, m_bar->maximum()));
    redraw();
}

void UploadForm::showInfo(const QString& text) {
    m_info->setText(text);
    redraw();
}

void UploadForm::showResetPrices(const QString& text) {
    m_resetPrices->setText(text);
    redraw();
}

void UploadForm::finish() {
    m_bar->setValue(m_bar->maximum());
    m_exit->setEnabled(true);
    m_exit->setFocus();
}

void UploadForm::unload() {
    m_unloading = true;
    if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget()))
        frame->close();
    else
        close();
}

void UploadForm::closeEvent(QCloseEvent* event) {
    // While the import runs there is nothing to close; afterwards the close box is Exit.
    if (m_exit->isEnabled() || m_unloading)
        event->accept();
    else
        event->ignore();
}

} // namespace ordwell
