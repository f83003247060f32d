#include "ScriptedPrompter.h"

#include <QSet>

namespace ordwell::test {

namespace {
QSet<ScriptedPrompter*>& livePrompters() {
    static QSet<ScriptedPrompter*> live;
    return live;
}
// Surprises of prompters that went out of scope inside a test function, before cleanup() ran.
QStringList& leftBehind() {
    static QStringList surprises;
    return surprises;
}
} // namespace

void MessageLog::append(const ShownMessage& message, bool announced) {
    m_shown.append(message);
    m_noted.append(announced);
}

QList<ShownMessage> MessageLog::unnoted() const {
    QList<ShownMessage> out;
    for (qsizetype i = 0; i < m_shown.size(); ++i) {
        if (!m_noted.at(i))
            out.append(m_shown.at(i));
    }
    return out;
}

ScriptedPrompter::ScriptedPrompter() {
    livePrompters().insert(this);
}

ScriptedPrompter::~ScriptedPrompter() {
    livePrompters().remove(this);
    leftBehind() << surprises();
}

void ScriptedPrompter::expect(const QString& text, MessageAnswer answer) {
    m_expected.enqueue({text, answer});
}

MessageAnswer ScriptedPrompter::message(const QString& text, const QString& title, MessageIcon icon,
                                        MessageButtons buttons) {
    const bool question = buttons == MessageButtons::YesNo;
    const MessageAnswer fallback = question ? MessageAnswer::No : MessageAnswer::Ok;
    if (!m_expected.isEmpty()) {
        const Expected next = m_expected.dequeue();
        const bool matches = next.text == text;
        messages.append({text, title, icon, buttons}, matches);
        if (!matches) {
            unexpected.append(QStringLiteral("\"%1\" shown where \"%2\" was expected").arg(text, next.text));
            return fallback;
        }
        return question ? next.answer : MessageAnswer::Ok;
    }
    messages.append({text, title, icon, buttons}, false);
    // Only a question takes a queued answer: a notice shown on the way must not eat the answer
    // meant for the question after it.
    if (!question)
        return MessageAnswer::Ok;
    if (!m_answers.isEmpty())
        return m_answers.dequeue();
    unexpected.append(text);
    return MessageAnswer::No;
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

QStringList ScriptedPrompter::surprises() const {
    QStringList out;
    for (const ShownMessage& m : messages.unnoted())
        out << QStringLiteral("message no test looked at: \"%1\" (%2)").arg(m.text, m.title);
    for (const QString& u : unexpected)
        out << QStringLiteral("unexpected: ") + u;
    for (const Expected& e : m_expected)
        out << QStringLiteral("expected message never shown: \"%1\"").arg(e.text);
    if (!m_answers.isEmpty())
        out << QStringLiteral("%1 queued answer(s) no question took").arg(m_answers.size());
    if (!m_files.isEmpty())
        out << QStringLiteral("%1 queued file(s) no file dialog took").arg(m_files.size());
    return out;
}

void ScriptedPrompter::reset() {
    clear();
    m_answers.clear();
    m_files.clear();
    m_expected.clear();
}

QStringList ScriptedPrompter::takeAllSurprises() {
    QStringList out = leftBehind();
    leftBehind().clear();
    for (ScriptedPrompter* prompter : std::as_const(livePrompters())) {
        out << prompter->surprises();
        prompter->reset();
    }
    return out;
}

} // namespace ordwell::test
