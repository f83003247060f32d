#pragma once

#include "app/AppContext.h"
#include "app/Options.h"

#include <QString>

namespace ordwell {

class Prompter;

// What a scripted command on one vendor needs before its own work: the data found (the data
// folder's files, kept from a running copy of the program by the lock, or a server), the
// organisation's database open and the vendor, active, open. Everything is closed and the
// lock let go when the object goes.
class HeadlessVendor {
public:
    HeadlessVendor(const Options& options, Prompter& prompter);
    ~HeadlessVendor();
    HeadlessVendor(const HeadlessVendor&) = delete;
    HeadlessVendor& operator=(const HeadlessVendor&) = delete;

    // Opens everything for vendor `code`; empty when done, else a one-line reason.
    QString open(const QString& code);

    AppContext& context() { return m_context; }
    const QString& code() const { return m_code; }
    const QString& name() const { return m_name; }

private:
    AppContext m_context;
    QString m_code;
    QString m_name;
};

} // namespace ordwell
