#include "simulator/app/SimulatorWindow.h"

#include "simulator/app/ControlPanel.h"
#include "simulator/app/EventWiring.h"
#include "simulator/app/MessageLog.h"
#include "simulator/app/MessageReporter.h"
#include "simulator/app/RobotScreen.h"
#include "simulator/app/ServedView.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedDialogModule.h"
#include "simulator/core/SimulatedPlugin.h"

#include <QSplitter>
#include <QUrl>
#include <QWebEngineView>

namespace simulator {

namespace {

const QSize WindowSize(1280, 800);
const int PanelWidth = 480;

} // namespace

SimulatorWindow::SimulatorWindow(RobotCore *core, QWidget *parent)
    : QMainWindow(parent)
    , m_log(new MessageLog(this))
    , m_screen(new RobotScreen)
{
    setWindowTitle(tr("Robot on the desk"));
    connect(m_screen->reporter(), &MessageReporter::published, m_log, &MessageLog::add);
    connect(m_screen->view(), &QWebEngineView::loadFinished, this, &SimulatorWindow::pageLoaded);
    m_screen->defaultHandlers(core->plugin(), core->dialog());
    wireEvents(core, m_screen);

    auto *panel = new ControlPanel(core, m_screen, m_log);
    auto *splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(m_screen);
    splitter->addWidget(panel);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    splitter->setSizes({WindowSize.width() - PanelWidth, PanelWidth});
    setCentralWidget(splitter);
    resize(WindowSize);
}

SimulatorWindow::~SimulatorWindow()
{
    // The screen goes while the log is there: what its handlers may still publish has a place.
    delete takeCentralWidget();
}

void SimulatorWindow::serve(PageServer *server)
{
    auto *splitter = static_cast<QSplitter *>(centralWidget());
    splitter->replaceWidget(splitter->indexOf(m_screen), new ServedView(server));
    // The bus and its handlers are the screen's, seen or not.
    m_screen->setParent(splitter);
    m_screen->hide();
}

void SimulatorWindow::load(const QUrl &url) { m_screen->load(QString::fromUtf8(url.toEncoded())); }

} // namespace simulator
