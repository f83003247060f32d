#pragma once

#include "catalogue/ScanKeys.h"

#include <QObject>
#include <QPointer>

class QLineEdit;

namespace ordwell {

// Installed on an entry box that takes scans: turns whatever the scanner types for the group
// separator (Ctrl+], ASCII 29, or the set substitute) into ASCII 29 in the box, which a line
// edit would otherwise drop as unprintable, and tells whether the last entry came as a scan.
class ScanKeyFilter : public QObject {
    Q_OBJECT
public:
    ScanKeyFilter(QLineEdit* box, GroupSeparatorSubstitute substitute, ScanBurst::Clock clock = {});

    bool lastEntryWasScan() const { return m_lastWasScan; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QLineEdit> m_box;
    GroupSeparatorSubstitute m_substitute;
    ScanBurst m_burst;
    bool m_lastWasScan = false;
};

} // namespace ordwell
