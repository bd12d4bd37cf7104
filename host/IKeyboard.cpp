#include "host/IKeyboard.h"

IKeyboard::IKeyboard(QObject *parent)
    : QObject(parent)
{ }

IKeyboard::~IKeyboard() = default;

QString IKeyboard::locale() { return QString(); }

void IKeyboard::setLocale(const QString &locale) { Q_UNUSED(locale) }

void IKeyboard::show() { setVisible(true); }

void IKeyboard::hide() { setVisible(false); }
