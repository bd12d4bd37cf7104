#include "simulator/app/ServedView.h"

#include "simulator/server/PageServer.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace simulator {

namespace {

QLabel *line(const QString &text)
{
    auto *label = new QLabel(text);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}

} // namespace

ServedView::ServedView(PageServer *server, QWidget *parent)
    : QWidget(parent)
    , m_browsers(line({}))
    , m_refused(line({}))
{
    const QString address = server->address().toString(QUrl::FullyEncoded);
    auto *title = line(tr("The page is in your browser"));
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 1.8);
    title->setFont(font);

    auto *link = line(QStringLiteral("<a href=\"%1\">%1</a>").arg(address.toHtmlEscaped()));
    link->setObjectName(QStringLiteral("address"));
    link->setTextInteractionFlags(Qt::TextBrowserInteraction);
    link->setOpenExternalLinks(true);
    link->setToolTip(tr("Opens in the browser of this desk"));
    auto *copy = new QPushButton(tr("Copy address"));
    connect(copy, &QPushButton::clicked, this,
            [address] { QGuiApplication::clipboard()->setText(address); });
    m_browsers->setObjectName(QStringLiteral("browsers"));
    m_refused->setObjectName(QStringLiteral("refused"));
    m_refused->setTextFormat(Qt::PlainText);

    auto *column = new QVBoxLayout(this);
    column->setSpacing(14);
    column->addStretch(2);
    column->addWidget(title);
    column->addWidget(link);
    column->addWidget(copy, 0, Qt::AlignHCenter);
    column->addWidget(m_browsers);
    column->addWidget(m_refused);
    column->addStretch(3);

    connect(server, &PageServer::browsersChanged, this, &ServedView::showBrowsers);
    connect(server, &PageServer::refused, m_refused, &QLabel::setText);
    showBrowsers(server->browsers());
}

void ServedView::showBrowsers(int count)
{
    if (count == 0)
        m_browsers->setText(tr("No browser is connected yet."));
    else if (count == 1)
        m_browsers->setText(tr("One browser is connected."));
    else
        m_browsers->setText(tr("%1 browsers are connected; each hears everything.").arg(count));
}

} // namespace simulator
