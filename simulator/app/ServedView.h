#pragma once

#include <QWidget>

class QLabel;

namespace simulator {

class PageServer;

/// Stands where the page would be when a browser shows it: the address to open, and who is connected.
class ServedView : public QWidget
{
    Q_OBJECT

public:
    /// @p server is not owned and outlives the view.
    explicit ServedView(PageServer *server, QWidget *parent = nullptr);

private:
    void showBrowsers(int count);

    QLabel *m_browsers;
    QLabel *m_refused;
};

} // namespace simulator
