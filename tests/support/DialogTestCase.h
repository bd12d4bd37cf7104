#pragma once

#include "panorel/ReplicContext.h"
#include "tests/support/HandlerTestCase.h"

/// Base of the tests of the dialog's handlers. The plugin's calls also hold, in the order in which
/// they were made, those of the dialog module and of the macro replacer.
class DialogTestCase : public HandlerTestCase
{
protected:
    panorel::ReplicContext *context() { return m_context.get(); }
    TestDialogModule *dialog() { return m_dialog.get(); }

    /// A plain line of the robot.
    static HostCall spoken(const QString &text, bool terminate)
    {
        return {QStringLiteral("ttsStart"),
                {text, terminate, true, QVariant::fromValue(ID(0, QUuid())), 0}};
    }
    static HostCall played(const QString &text, bool terminate)
    {
        return {QStringLiteral("processReplica"), {text, terminate}};
    }
    static HostCall anchored(const ID &anchor)
    {
        return {QStringLiteral("answersAnchor"), {QVariant::fromValue(anchor)}};
    }
    static HostCall lent(const QString &name, const QString &value)
    {
        return {QStringLiteral("setMacros"), {name, value}};
    }

    void setUp() override
    {
        HandlerTestCase::setUp();
        m_context = std::make_unique<panorel::ReplicContext>(plugin());
        m_dialog = std::make_unique<TestDialogModule>();
        m_dialog->hostCalls = &plugin()->calls;
        plugin()->replacer->hostCalls = &plugin()->calls;
    }

    void tearDown() override
    {
        HandlerTestCase::tearDown();
        m_dialog.reset();
        m_context.reset();
    }

private:
    std::unique_ptr<panorel::ReplicContext> m_context;
    std::unique_ptr<TestDialogModule> m_dialog;
};
