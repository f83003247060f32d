#include "ScriptedPrompter.h"

namespace ordwell::test {

MessageAnswer ScriptedPrompter::message(const QString& text, const QString& title, MessageIcon icon,
                                        MessageButtons buttons) {
    messages.append({text, title, icon, buttons});
    if (!m_answers.isEmpty())
        return m_answers.dequeue();
    if (buttons == MessageButtons::YesNo) {
        unexpected.append(text);
        return MessageAnswer::No;
    }
    return MessageAnswer::Ok;
}

std::optional<QString> ScriptedPrompter::openFile(const FileRequest& request) {
    fileRequests.append(request);
    if (m_files.isEmpty()) {
        unexpected.append(QStringLiteral("file dialog: ") + request.title);
        return std::nullopt;
    }
    return m_files.dequeue();
}

std::optional<QString> ScriptedPrompter::saveFile(const FileRequest& request) {
    saveRequests.append(request);
    if (m_files.isEmpty()) {
        unexpected.append(QStringLiteral("save dialog: ") + request.title);
        return std::nullopt;
    }
    return m_files.dequeue();
}

QStringList ScriptedPrompter::texts() const {
    QStringList out;
    for (const auto& m : messages)
        out << m.text;
    return out;
}

} // namespace ordwell::test
