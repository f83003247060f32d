#include "PrivateDisk.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace ordwell::test {

namespace {

const char FillerName[] = ".filler";

QString lastError(const char* what) {
    return QStringLiteral("%1: %2").arg(QLatin1String(what), QString::fromLocal8Bit(std::strerror(errno)));
}

bool writeProcFile(const char* path, const char* text) {
    const int fd = ::open(path, O_WRONLY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const auto length = static_cast<ssize_t>(std::strlen(text));
    const bool written = ::write(fd, text, static_cast<size_t>(length)) == length;
    ::close(fd);
    return written;
}

// Our own user id keeps its rights inside; mounts made here stay here.
QString enter() {
    const uid_t uid = ::getuid();
    const gid_t gid = ::getgid();
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return lastError("unshare");
    char map[64];
    std::snprintf(map, sizeof map, "%u %u 1", uid, uid);
    if (!writeProcFile("/proc/self/uid_map", map))
        return lastError("uid_map");
    writeProcFile("/proc/self/setgroups", "deny");
    std::snprintf(map, sizeof map, "%u %u 1", gid, gid);
    if (!writeProcFile("/proc/self/gid_map", map))
        return lastError("gid_map");
    if (::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        return lastError("mount private");
    return {};
}

// Runs before main(), while the process has one thread.
const QString entryProblem = enter();

} // namespace

QString privateNamespaceProblem() {
    return entryProblem;
}

SmallDisk::SmallDisk(const QString& folder, int kib) : m_folder(folder) {
    const QByteArray options = "size=" + QByteArray::number(kib) + "k,mode=0700";
    if (::mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", MS_NOSUID | MS_NODEV, options.constData()) !=
        0)
        m_problem = lastError("mount tmpfs");
    else
        m_mounted = true;
}

SmallDisk::~SmallDisk() {
    if (m_mounted)
        ::umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
}

bool SmallDisk::fill(qint64 keepBytes) {
    QFile filler(QDir(m_folder).filePath(QLatin1String(FillerName)));
    if (!filler.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        return false;
    // Written in shrinking pieces, so the disk ends up full to the last block.
    const QByteArray block(64 * 1024, 'f');
    for (qint64 piece = block.size(); piece > 0; piece /= 2) {
        while (filler.write(block.constData(), piece) == piece) {
        }
    }
    filler.close();
    if (keepBytes > 0)
        return filler.resize(qMax<qint64>(0, filler.size() - keepBytes));
    return true;
}

void SmallDisk::release() {
    QFile::remove(QDir(m_folder).filePath(QLatin1String(FillerName)));
}

ReadOnlyFolder::ReadOnlyFolder(const QString& folder) : m_folder(folder) {
    const QByteArray path = QFile::encodeName(folder);
    if (::mount(path.constData(), path.constData(), nullptr, MS_BIND, nullptr) != 0) {
        m_problem = lastError("bind mount");
        return;
    }
    m_mounted = true;
    if (::mount(nullptr, path.constData(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) != 0)
        m_problem = lastError("read-only remount");
}

ReadOnlyFolder::~ReadOnlyFolder() {
    if (m_mounted)
        ::umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
}

} // namespace ordwell::test
