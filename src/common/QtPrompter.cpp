#include "QtPrompter.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

namespace ordwell {

MessageAnswer QtPrompter::message(const QString& text, const QString& title, MessageIcon icon, MessageButtons buttons) {
    QMessageBox box(QApplication::activeWindow());
    box.setObjectName(QStringLiteral("msgBox"));
    box.setWindowTitle(title.isEmpty() ? QStringLiteral("Ordwell") : title);
    box.setText(text);
    switch (icon) {
    case MessageIcon::None:
        box.setIcon(QMessageBox::NoIcon);
        break;
    case MessageIcon::Information:
        box.setIcon(QMessageBox::Information);
        break;
    case MessageIcon::Exclamation:
        box.setIcon(QMessageBox::Warning);
        break;
    case MessageIcon::Critical:
        box.setIcon(QMessageBox::Critical);
        break;
    case MessageIcon::Question:
        box.setIcon(QMessageBox::Question);
        break;
    }
    if (buttons == MessageButtons::YesNo) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::Yes);
    } else {
        box.setStandardButtons(QMessageBox::Ok);
    }
    const int result = box.exec();
    if (buttons == MessageButtons::YesNo)
        return result == QMessageBox::Yes ? MessageAnswer::Yes : MessageAnswer::No;
    return MessageAnswer::Ok;
}

namespace {

// Qt's own dialog on every platform, so tests and the screen reader find the same widgets.
std::optional<QString> runFileDialog(const FileRequest& request, const QString& objectName,
                                     QFileDialog::AcceptMode acceptMode, QFileDialog::FileMode fileMode) {
    QFileDialog dialog(QApplication::activeWindow(), request.title, request.startFolder);
    dialog.setObjectName(objectName);
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    dialog.setOption(QFileDialog::ReadOnly, false);
    dialog.setAcceptMode(acceptMode);
    dialog.setFileMode(fileMode);
    dialog.setNameFilters(request.filters);
    if (!request.filters.isEmpty())
        dialog.selectNameFilter(request.filters.first());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().first();
}

} // namespace

std::optional<QString> QtPrompter::openFile(const FileRequest& request) {
    return runFileDialog(request, QStringLiteral("dlgOpenFile"), QFileDialog::AcceptOpen,
                         request.mustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
}

std::optional<QString> QtPrompter::saveFile(const FileRequest& request) {
    return runFileDialog(request, QStringLiteral("dlgSaveFile"), QFileDialog::AcceptSave, QFileDialog::AnyFile);
}

} // namespace ordwell
