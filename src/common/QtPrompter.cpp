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

std::optional<QString> QtPrompter::openFile(const FileRequest& request) {
    QFileDialog dialog(QApplication::activeWindow(), request.title, request.startFolder);
    dialog.setObjectName(QStringLiteral("dlgOpenFile"));
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    dialog.setOption(QFileDialog::ReadOnly, false);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(request.mustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setNameFilters(request.filters);
    if (!request.filters.isEmpty())
        dialog.selectNameFilter(request.filters.first());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().first();
}

std::optional<QString> QtPrompter::saveFile(const FileRequest& request) {
    QFileDialog dialog(QApplication::activeWindow(), request.title, request.startFolder);
    dialog.setObjectName(QStringLiteral("dlgSaveFile"));
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(request.filters);
    if (!request.filters.isEmpty())
        dialog.selectNameFilter(request.filters.first());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().first();
}

} // namespace ordwell
