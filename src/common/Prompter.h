#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace ordwell {

enum class MessageIcon { None, Information, Exclamation, Critical, Question };
enum class MessageButtons { Ok, YesNo };
enum class MessageAnswer { Ok, Yes, No };

// What the open-file dialog is asked for: its title, the folder it starts in, the filters
// as "Name (*.ext)" texts (the first one shown first), and whether the file must exist.
struct FileRequest {
    QString title;
    QString startFolder;
    QStringList filters;
    bool mustExist = true;
};

// The one way Ordwell puts a message box or a file dialog in front of the user. The program
// uses real Qt boxes; tests install a scripted one that records what was said and answers
// from a queue.
class Prompter {
public:
    virtual ~Prompter() = default;

    // An empty title shows the application title.
    virtual MessageAnswer message(const QString& text, const QString& title, MessageIcon icon,
                                  MessageButtons buttons = MessageButtons::Ok) = 0;

    // The chosen file's full path, or nothing when the user cancelled.
    virtual std::optional<QString> openFile(const FileRequest& request) = 0;

    // Where to write a new file: the full path, or nothing when the user cancelled. The
    // request's startFolder may end in a suggested file name; mustExist is not used. A prompter
    // with nobody to ask (a headless run) answers as if the user cancelled.
    virtual std::optional<QString> saveFile(const FileRequest& request) {
        Q_UNUSED(request);
        return std::nullopt;
    }

    bool ask(const QString& text, const QString& title, MessageIcon icon = MessageIcon::Question) {
        return message(text, title, icon, MessageButtons::YesNo) == MessageAnswer::Yes;
    }
};

} // namespace ordwell
