#pragma once

#include "common/Prompter.h"

#include <QList>
#include <QQueue>
#include <QString>
#include <optional>

namespace ordwell::test {

struct ShownMessage {
    QString text;
    QString title;
    MessageIcon icon;
    MessageButtons buttons;
};

// Records every message and answers from a queue. A Yes/No question with no answer queued is
// an unexpected message: it is recorded as such and answered No, so nothing ever blocks.
class ScriptedPrompter : public Prompter {
public:
    MessageAnswer message(const QString& text, const QString& title, MessageIcon icon,
                          MessageButtons buttons = MessageButtons::Ok) override;
    std::optional<QString> openFile(const FileRequest& request) override;
    // Answered from the same queue as openFile(); recorded in saveRequests.
    std::optional<QString> saveFile(const FileRequest& request) override;

    void queueAnswer(MessageAnswer answer) { m_answers.enqueue(answer); }
    // A path to choose, or std::nullopt to cancel.
    void queueFile(std::optional<QString> path) { m_files.enqueue(std::move(path)); }

    QList<ShownMessage> messages;
    QList<FileRequest> fileRequests;
    QList<FileRequest> saveRequests;
    QStringList unexpected;

    QStringList texts() const;
    QString lastText() const { return messages.isEmpty() ? QString() : messages.last().text; }
    void clear() {
        messages.clear();
        fileRequests.clear();
        saveRequests.clear();
        unexpected.clear();
    }

private:
    QQueue<MessageAnswer> m_answers;
    QQueue<std::optional<QString>> m_files;
};

} // namespace ordwell::test
