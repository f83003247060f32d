#pragma once

#include "common/Prompter.h"

// Answers every message with OK (questions with No) and counts them: nobody is there to read
// them during a benchmark. No file is ever chosen.
class SilentPrompter : public ordwell::Prompter {
public:
    ordwell::MessageAnswer message(const QString&, const QString&, ordwell::MessageIcon,
                                   ordwell::MessageButtons buttons) override {
        ++shown;
        return buttons == ordwell::MessageButtons::YesNo ? ordwell::MessageAnswer::No : ordwell::MessageAnswer::Ok;
    }
    std::optional<QString> openFile(const ordwell::FileRequest&) override { return std::nullopt; }
    std::optional<QString> saveFile(const ordwell::FileRequest&) override { return std::nullopt; }
    int shown = 0;
};
