#pragma once

#include "common/Prompter.h"

namespace ordwell {

// The real message boxes and the open-file dialog, run modally over the active window.
class QtPrompter : public Prompter {
public:
    MessageAnswer message(const QString& text, const QString& title, MessageIcon icon,
                          MessageButtons buttons = MessageButtons::Ok) override;
    std::optional<QString> openFile(const FileRequest& request) override;
    std::optional<QString> saveFile(const FileRequest& request) override;
};

} // namespace ordwell
