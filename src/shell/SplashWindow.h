#pragma once

#include "app/AppContext.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace ordwell {

// frmsplash: the product picture, the version and a progress line while the program starts;
// as the About window the same picture with its two buttons instead of the progress line.
class SplashWindow : public QWidget {
    Q_OBJECT
public:
    explicit SplashWindow(AppContext& context, QWidget* parent = nullptr);

    // Set before the window is shown: true while it serves start-up.
    bool ShowAsSplash = false;

    void setStatus(const QString& text);
    QString status() const;
    // Every progress text shown, in order.
    const QStringList& statusHistory() const { return m_history; }

    static QString makerAddress();

protected:
    void showEvent(QShowEvent* event) override;

private:
    AppContext& m_context;
    QLabel* m_status = nullptr;
    QPushButton* m_exit = nullptr;
    QPushButton* m_web = nullptr;
    QStringList m_history;
};

} // namespace ordwell
