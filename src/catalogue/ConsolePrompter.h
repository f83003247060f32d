#pragma once

#include "common/Prompter.h"

#include <QTextStream>

namespace ordwell {

// Messages for a run without windows: notices go to standard output, warnings and errors to
// standard error, one message a line. No question can be asked (the answer is No) and no file
// can be chosen or named.
class ConsolePrompter : public Prompter {
public:
    ConsolePrompter(QTextStream& out, QTextStream& err) : m_out(out), m_err(err) {}

    MessageAnswer message(const QString& text, const QString& title, MessageIcon icon,
                          MessageButtons buttons = MessageButtons::Ok) override;
    std::optional<QString> openFile(const FileRequest& request) override;
    std::optional<QString> saveFile(const FileRequest& request) override;

private:
    QTextStream& m_out;
    QTextStream& m_err;
};

} // namespace ordwell
