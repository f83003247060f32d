#include "FileChooser.h"

namespace ordwell::FileChooser {

FileRequest requestFor(int kind, const QString& desktopPath) {
    FileRequest request;
    request.title = QStringLiteral("Open File");
    request.startFolder = desktopPath;
    request.mustExist = true;
    if (kind == ImportFiles)
        request.filters = {QStringLiteral("Comma Seperated Variable (*.csv)"), QStringLiteral("Text File(*.txt)")};
    else if (kind == ReportFiles)
        request.filters = {QStringLiteral("Report File (*.rpt)")};
    return request;
}

std::optional<QString> choose(AppContext& context, int kind) {
    // Counted as open while the dialog runs, so the main window cannot be closed under it.
    ++context.OpenWindowCount;
    auto chosen = context.prompter().openFile(requestFor(kind, context.DesktopPath));
    --context.OpenWindowCount;
    if (chosen && chosen->isEmpty())
        return std::nullopt;
    return chosen;
}

} // namespace ordwell::FileChooser
