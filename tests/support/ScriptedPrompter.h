#pragma once

#include "common/Prompter.h"

#include <QList>
#include <QQueue>
#include <QString>
#include <QStringList>
#include <optional>

namespace ordwell::test {

struct ShownMessage {
    QString text;
    QString title;
    MessageIcon icon;
    MessageButtons buttons;
};

// The messages a prompter showed, read like a list. Reading it (its size, an entry, its texts)
// is the test taking note of what was shown; a message no test ever looked at or announced is
// a surprise that fails the test when it ends.
class MessageLog {
public:
    qsizetype size() const { return noted().size(); }
    bool isEmpty() const { return noted().isEmpty(); }
    const ShownMessage& at(qsizetype i) const { return noted().at(i); }
    const ShownMessage& operator[](qsizetype i) const { return at(i); }
    const ShownMessage& first() const { return noted().first(); }
    const ShownMessage& last() const { return noted().last(); }
    QList<ShownMessage>::const_iterator begin() const { return noted().cbegin(); }
    QList<ShownMessage>::const_iterator end() const { return m_shown.cend(); }
    void clear() {
        m_shown.clear();
        m_noted.clear();
    }

    // `announced`: the test said beforehand that this message would come.
    void append(const ShownMessage& message, bool announced);
    // Shown messages that nothing has looked at or announced.
    QList<ShownMessage> unnoted() const;

private:
    const QList<ShownMessage>& noted() const {
        m_noted.fill(true);
        return m_shown;
    }
    QList<ShownMessage> m_shown;
    mutable QList<bool> m_noted;
};

// Records every message and answers from a queue. A Yes/No question with no answer queued is
// an unexpected message: it is recorded as such and answered No, so nothing ever blocks.
// Whatever a test did not expect (an unnoted message, an unanswered question, a queued answer
// or file that nothing asked for) is reported by surprises() and fails the test in cleanup().
class ScriptedPrompter : public Prompter {
public:
    ScriptedPrompter();
    ~ScriptedPrompter() override;
    ScriptedPrompter(const ScriptedPrompter&) = delete;
    ScriptedPrompter& operator=(const ScriptedPrompter&) = delete;

    MessageAnswer message(const QString& text, const QString& title, MessageIcon icon,
                          MessageButtons buttons = MessageButtons::Ok) override;
    std::optional<QString> openFile(const FileRequest& request) override;
    // Answered from the same queue as openFile(); recorded in saveRequests.
    std::optional<QString> saveFile(const FileRequest& request) override;

    // The answer to the next Yes/No question.
    void queueAnswer(MessageAnswer answer) { m_answers.enqueue(answer); }
    // A path to choose, or std::nullopt to cancel.
    void queueFile(std::optional<QString> path) { m_files.enqueue(std::move(path)); }
    // Announces the next message: it must have this text, and a question gets `answer`.
    void expect(const QString& text, MessageAnswer answer = MessageAnswer::Ok);

    MessageLog messages;
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

    // What the test did not expect so far, one line each; empty when all went as scripted.
    QStringList surprises() const;
    // Forgets everything scripted and shown, so the next test starts clean.
    void reset();

    // Surprises of every prompter alive now or destroyed since the last call; then forgets them.
    static QStringList takeAllSurprises();

private:
    struct Expected {
        QString text;
        MessageAnswer answer;
    };
    QQueue<MessageAnswer> m_answers;
    QQueue<std::optional<QString>> m_files;
    QQueue<Expected> m_expected;
};

} // namespace ordwell::test
