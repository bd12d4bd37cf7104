#pragma once

#include "panorel/Panorel.h"
#include "panorel/PanorelProxy.h"
#include "tests/support/TestCase.h"
#include "tests/support/TestPlugin.h"

/// Base of the tests with a real widget. The host outlives it.
class WidgetTestCase : public TestCase
{
protected:
    void setUp() override
    {
        plugin = std::make_unique<TestPlugin>();
        dialog = std::make_unique<TestDialogModule>();
        screen = std::make_unique<panorel::Panorel>();
    }

    void tearDown() override
    {
        screen.reset();
        dialog.reset();
        plugin.reset();
    }

    /// The web engine and the platform plugin have warnings of their own.
    bool isForeign(const QString &warning) const override
    {
        return !warning.startsWith(QLatin1String("panorel:"))
            && !warning.contains(QLatin1String("QObject::"));
    }

    void defaultHandlers() { screen->defaultHandlers(plugin.get(), dialog.get()); }
    panorel::PanorelProxy *proxy() const { return screen->findChild<panorel::PanorelProxy *>(); }

    std::unique_ptr<TestPlugin> plugin;
    std::unique_ptr<TestDialogModule> dialog;
    std::unique_ptr<panorel::Panorel> screen;
};
