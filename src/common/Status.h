#pragma once

#include <QString>
#include <optional>
#include <utility>

namespace ordwell {

// Outcome of an operation that can fail: empty message means success. Logic returns these;
// forms turn a failure into a message box.
class Status {
public:
    Status() = default;
    static Status ok() { return {}; }
    static Status fail(QString message) {
        Status s;
        s.m_failed = true;
        s.m_message = std::move(message);
        return s;
    }
    bool isOk() const { return !m_failed; }
    explicit operator bool() const { return !m_failed; }
    const QString& message() const { return m_message; }

private:
    bool m_failed = false;
    QString m_message;
};

// A value or the reason there is none.
template <typename T> class Result {
public:
    Result(T value) : m_value(std::move(value)) {}
    Result(Status failure) : m_status(std::move(failure)) {}
    bool isOk() const { return m_value.has_value(); }
    explicit operator bool() const { return isOk(); }
    const T& value() const { return *m_value; }
    T& value() { return *m_value; }
    const T& operator*() const { return *m_value; }
    const T* operator->() const { return &*m_value; }
    const Status& status() const { return m_status; }
    const QString& message() const { return m_status.message(); }

private:
    std::optional<T> m_value;
    Status m_status;
};

} // namespace ordwell
