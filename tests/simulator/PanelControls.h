#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QtTest>

/// The controls of a panel, as a person finds and uses them.
namespace controls {

/// The child with this name, or the button with this text.
template <typename Control>
Control *find(const QWidget *panel, const char *nameOrText)
{
    const QString wanted = QString::fromUtf8(nameOrText);
    for (Control *control : panel->findChildren<Control *>()) {
        const auto *button = qobject_cast<QAbstractButton *>(control);
        if (control->objectName() == wanted || (button && button->text() == wanted))
            return control;
    }
    qFatal("no control %s", nameOrText);
}

inline QString text(const QWidget *panel, const char *label)
{
    return find<QLabel>(panel, label)->text();
}

inline void click(const QWidget *panel, const char *button)
{
    QTest::mouseClick(find<QAbstractButton>(panel, button), Qt::LeftButton);
}

/// Clicks where the box is: its width may be more than its text's.
inline void check(const QWidget *panel, const char *box)
{
    auto *found = find<QCheckBox>(panel, box);
    QTest::mouseClick(found, Qt::LeftButton, Qt::NoModifier, QPoint(8, found->height() / 2));
}

inline void enter(const QWidget *panel, const char *number, int value)
{
    auto *found = find<QSpinBox>(panel, number);
    found->selectAll();
    QTest::keyClicks(found, QString::number(value));
    QTest::keyClick(found, Qt::Key_Return);
}

inline void type(const QWidget *panel, const char *field, const QString &text)
{
    auto *found = find<QLineEdit>(panel, field);
    found->selectAll();
    QTest::keyClicks(found, text);
}

/// Goes down to the choice with this index from the first one.
inline void choose(const QWidget *panel, const char *choice, int index)
{
    auto *found = find<QComboBox>(panel, choice);
    QTest::keyClick(found, Qt::Key_Home);
    for (int i = 0; i < index; ++i)
        QTest::keyClick(found, Qt::Key_Down);
    QCOMPARE(found->currentIndex(), index);
}

} // namespace controls
