#include "simulator/app/VisitorEventsPanel.h"

#include "host/FaceTrainStatus.h"
#include "host/UserData.h"
#include "simulator/app/FormRow.h"
#include "simulator/app/RobotScreen.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedDialogModule.h"
#include "simulator/core/SimulatedFaces.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include <limits>

namespace simulator {

VisitorEventsPanel::VisitorEventsPanel(RobotCore *core, RobotScreen *screen, QWidget *parent)
    : QWidget(parent)
    , m_core(core)
    , m_screen(screen)
    , m_name(new QLineEdit(QStringLiteral("Anna")))
    , m_id(new QSpinBox)
    , m_speech(new QLineEdit(tr("Where is the exit?")))
    , m_final(new QCheckBox(tr("final")))
    , m_action(new QLineEdit(QStringLiteral("wave; left")))
    , m_face(new QSpinBox)
    , m_trainStep(new QSpinBox)
{
    m_id->setMaximum(std::numeric_limits<int>::max());
    m_id->setValue(1);
    m_id->setPrefix(tr("id "));
    m_id->setMaximumWidth(90);
    m_final->setChecked(true);
    m_face->setMaximum(std::numeric_limits<int>::max());
    m_face->setValue(1);
    m_trainStep->setMaximum(SimulatedFaces::lastStep());
    m_action->setToolTip(tr("Texts, separated by semicolons"));

    m_speech->setObjectName(QStringLiteral("speech"));
    QPushButton *comes = formButton(tr("Comes"));
    QPushButton *leaves = formButton(tr("Leaves"));
    QPushButton *says = formButton(tr("Says"));
    says->setObjectName(QStringLiteral("says"));
    QPushButton *acts = formButton(tr("Acts"));
    QPushButton *general = formButton(tr("Report"));
    QPushButton *train = formButton(tr("Report"));

    auto *form = new QFormLayout(this);
    form->addRow(tr("Person"), formRow({m_name, m_id, comes, leaves}));
    form->addRow(tr("Speech"), formRow({m_speech, m_final, says}));
    form->addRow(tr("Action"), formRow({m_action, acts}));
    form->addRow(tr("Main face"), formRow({m_face, general}));
    form->addRow(tr("Training step"), formRow({m_trainStep, train}));

    connect(comes, &QPushButton::clicked, this, &VisitorEventsPanel::onComes);
    connect(leaves, &QPushButton::clicked, this, &VisitorEventsPanel::onLeaves);
    connect(says, &QPushButton::clicked, this, &VisitorEventsPanel::onSaid);
    connect(m_speech, &QLineEdit::returnPressed, this, &VisitorEventsPanel::onSaid);
    connect(acts, &QPushButton::clicked, this, &VisitorEventsPanel::onActs);
    connect(general, &QPushButton::clicked, m_screen,
            [this] { m_screen->faceGeneral(m_face->value()); });
    connect(train, &QPushButton::clicked, m_screen,
            [this] { m_screen->faceAddStatus(FaceTrainStatus(m_trainStep->value())); });
}

void VisitorEventsPanel::onComes()
{
    FaceInfo face;
    face.setId(m_id->value());
    face.setType(FaceInfo::User);
    UserData user;
    user.setInfo(face);
    user.setName(m_name->text());
    user.setAcquaintanceDate(QDateTime::currentDateTime());
    user.setLastVisit(QDateTime::currentDateTime());
    m_screen->hasUser(user);
    m_core->dialog()->meet(user);
}

void VisitorEventsPanel::onLeaves()
{
    m_screen->lostUser();
    m_core->dialog()->part();
}

void VisitorEventsPanel::onSaid()
{
    m_core->dialog()->hear(m_speech->text(), m_final->isChecked());
}

void VisitorEventsPanel::onActs()
{
    QStringList meta;
    const QStringList pieces = m_action->text().split(QLatin1Char(';'));
    for (const QString &piece : pieces)
        meta.append(piece.trimmed());
    m_screen->userAction(meta);
}

} // namespace simulator
