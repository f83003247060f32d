#pragma once

#include <QString>

namespace ordwell::test {

// Faults of the file system itself (a full disk, a read-only folder) need mounts of our own.
// The fault tests run in a private user and mount namespace, entered once before anything
// else starts (a process with threads cannot enter one), so their mounts are seen by no one
// else and vanish with the process. Root ignores file rights, so only a mount can make a
// folder truly read-only.

// Why the private namespace could not be entered; empty once inside it.
QString privateNamespaceProblem();

// A tiny file system of `kib` KiB mounted over `folder` (which must exist) until destroyed.
class SmallDisk {
public:
    SmallDisk(const QString& folder, int kib);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    // What went wrong mounting it; empty when it is in place.
    const QString& problem() const { return m_problem; }
    // Takes up every free byte but `keepBytes`, as another program filling the disk would.
    bool fill(qint64 keepBytes = 0);
    // Gives the space taken by fill() back.
    void release();

private:
    QString m_folder;
    QString m_problem;
    bool m_mounted = false;
};

// `folder` shown read-only (a read-only bind mount over itself) until destroyed.
class ReadOnlyFolder {
public:
    explicit ReadOnlyFolder(const QString& folder);
    ~ReadOnlyFolder();
    ReadOnlyFolder(const ReadOnlyFolder&) = delete;
    ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;
    const QString& problem() const { return m_problem; }

private:
    QString m_folder;
    QString m_problem;
    bool m_mounted = false;
};

} // namespace ordwell::test
