#include "SplashWindow.h"

#include "app/Options.h"
#include "common/FormHelpers.h"

#include <QDesktopServices>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QUrl>
#include <QVBoxLayout>

namespace ordwell {

QString SplashWindow::makerAddress() {
    return QStringLiteral("https://ordwell.example.org");
}

SplashWindow::SplashWindow(AppContext& context, QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::WindowStaysOnTopHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      m_context(context) {
    setObjectName(QStringLiteral("frmsplash"));
    setWindowTitle(QStringLiteral("Ordwell"));
    setWindowIcon(QIcon(QStringLiteral(":/images/ordwell-icon.png")));

    auto* picture = new QLabel(this);
    picture->setObjectName(QStringLiteral("Picture2"));
    picture->setPixmap(QPixmap(QStringLiteral(":/images/splash.jpg")));
    picture->setAccessibleName(QStringLiteral("Ordwell"));

    auto* emblem = new QLabel(this);
    emblem->setObjectName(QStringLiteral("Picture1"));
    emblem->setPixmap(QPixmap(QStringLiteral(":/images/emblem.png")));
    emblem->setAccessibleName(QStringLiteral("Ordwell emblem"));

    auto* version = new QLabel(QStringLiteral("Ordwell v") + versionText(), this);
    version->setObjectName(QStringLiteral("label1"));
    QFont big = version->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 1.3);
    version->setFont(big);

    auto* notice = new QLabel(QStringLiteral("Purchase ordering for small organisations. "
                                             "Your data stays in your own data folder."),
                              this);
    notice->setObjectName(QStringLiteral("Label2"));
    notice->setWordWrap(true);

    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("Label3"));
    m_status->setAccessibleDescription(QStringLiteral("Start-up progress"));

    m_exit = new QPushButton(QStringLiteral("&Exit"), this);
    m_exit->setObjectName(QStringLiteral("Command1"));
    m_web = new QPushButton(makerAddress(), this);
    m_web->setObjectName(QStringLiteral("cmdie"));
    pressWithEnter(m_exit);
    pressWithEnter(m_web);
    connect(m_exit, &QPushButton::clicked, this, &QWidget::close);
    connect(m_web, &QPushButton::clicked, this, [] { QDesktopServices::openUrl(QUrl(makerAddress())); });

    auto* text = new QVBoxLayout;
    text->addWidget(version);
    text->addWidget(notice);
    text->addStretch();
    auto* middle = new QHBoxLayout;
    middle->addWidget(emblem, 0, Qt::AlignTop);
    middle->addLayout(text, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_web);
    buttons->addStretch();
    buttons->addWidget(m_exit);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(picture);
    layout->addLayout(middle);
    layout->addWidget(m_status);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void SplashWindow::setStatus(const QString& text) {
    m_status->setText(text);
    if (!text.isEmpty())
        m_history.append(text);
    m_status->repaint();
}

QString SplashWindow::status() const {
    return m_status->text();
}

void SplashWindow::showEvent(QShowEvent* event) {
    m_exit->setVisible(!ShowAsSplash);
    m_web->setVisible(!ShowAsSplash);
    m_status->setVisible(ShowAsSplash);
    adjustSize();
    if (QScreen* screen = QGuiApplication::primaryScreen()) {
        // Centred across, 500 twips above the middle.
        const QRect area = screen->geometry();
        const int above = qRound(500.0 * logicalDpiY() / 1440.0);
        move(area.x() + (area.width() - width()) / 2, area.y() + (area.height() - height()) / 2 - above);
    }
    QWidget::showEvent(event);
    if (!ShowAsSplash)
        m_exit->setFocus();
}

} // namespace ordwell
