#pragma once

#include "ImportProgress.h"

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace ordwell {

// frmupload: how far an item import has got. Redrawn as the import reports lines, with user
// input held back meanwhile, so nothing the user does runs in the middle of the import. Its
// Exit is enabled only once the import has finished; the close box acts as Exit.
class UploadForm : public QWidget, public ImportProgress {
    Q_OBJECT
public:
    explicit UploadForm(QWidget* parent = nullptr);

    void showLineCount(int count) override;
    void showLine(int line) override;
    void showInfo(const QString& text) override;
    void showResetPrices(const QString& text) override;

    // The import has ended: Exit may be used.
    void finish();
    // The import stopped: the window goes at once.
    void unload();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void redraw();

    QLabel* m_countInfo[2] = {nullptr, nullptr};
    QLabel* m_count[2] = {nullptr, nullptr};
    QLabel* m_info = nullptr;
    QLabel* m_resetPrices = nullptr;
    QProgressBar* m_bar = nullptr;
    QPushButton* m_exit = nullptr;
    bool m_unloading = false;
};

} // namespace ordwell
