#pragma once

#include "FindListModel.h"

#include <QString>
#include <functional>
#include <optional>

class QWidget;

namespace ordwell {

class AppContext;

// Finding a record by its description: the find window shown modally over the main window.
//
// The item window and the order form's item entry call it the same way:
//
//     if (const auto descr = Find::findItemDescription(context, this, Find::ItemFormMask))
//         ... look *descr up in the form's own list of items ...
//
// which shows "Type item description to find" over the open vendor's item descriptions,
// waits for a double-click (the description) or Cancel/the close box (nothing), and then
// restores the main window with the caller's menu mask. FindRecord is the general form for
// any one-column list; RestoreAfterFind is done by findItemDescription, by hand otherwise.
namespace Find {

// The masks the two callers restore after the window has closed.
inline const QString ItemFormMask = QStringLiteral("01000000000000000010");
inline const QString OrderFormMask = QStringLiteral("01000000000001100010");
inline const QString ItemPrompt = QStringLiteral("Type item description to find");

// The open vendor's item descriptions, in description order.
FindQuery itemDescriptions();

// Shows frmfind modally, centred over `parent`'s window, listing `query` from the open vendor's
// database under `prompt`. The chosen entry, or nothing when the user cancelled. A list that
// cannot be read is reported as a critical message and shown empty.
std::optional<QString> FindRecord(AppContext& context, QWidget* parent, const QString& prompt, const FindQuery& query);

// After the window has closed: lets pending window events run (user input held back), shows the
// vendor in the status bar, applies `mask`.
void RestoreAfterFind(AppContext& context, const QString& mask);

// FindRecord with the item prompt and descriptions, then RestoreAfterFind(mask).
std::optional<QString> findItemDescription(AppContext& context, QWidget* parent, const QString& mask);

// For tests of the callers: while an instance lives, FindRecord shows no window and answers
// from `answer` instead (given the prompt and the query).
class ScriptedFind {
public:
    using Answer = std::function<std::optional<QString>(const QString& prompt, const FindQuery& query)>;
    explicit ScriptedFind(Answer answer);
    ~ScriptedFind();
    ScriptedFind(const ScriptedFind&) = delete;
    ScriptedFind& operator=(const ScriptedFind&) = delete;

private:
    Answer m_previous;
};

} // namespace Find
} // namespace ordwell
