#include "ConsolePrompter.h"

namespace ordwell {

MessageAnswer ConsolePrompter::message(const QString& text, const QString&, MessageIcon icon, MessageButtons buttons) {
    const bool problem = icon == MessageIcon::Critical || icon == MessageIcon::Exclamation;
    QTextStream& stream = problem ? m_err : m_out;
    stream << text << Qt::endl;
    return buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Ok;
}

std::optional<QString> ConsolePrompter::openFile(const FileRequest&) {
    return std::nullopt;
}

std::optional<QString> ConsolePrompter::saveFile(const FileRequest&) {
    return std::nullopt;
}

} // namespace ordwell
