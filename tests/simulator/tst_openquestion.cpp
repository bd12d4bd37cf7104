#include "simulator/core/OpenQuestion.h"

#include "tests/support/TestCase.h"

using simulator::OpenQuestion;

class OpenQuestionTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tellsWhichAnswerIsMeant_data();
    void tellsWhichAnswerIsMeant();
    void isOpenWithAText();
};

void OpenQuestionTest::tellsWhichAnswerIsMeant_data()
{
    QTest::addColumn<QString>("said");
    QTest::addColumn<int>("answer");
    QTest::newRow("as shown") << QStringLiteral("Meeting rooms") << 1;
    QTest::newRow("other case, punctuation") << QStringLiteral("meeting ROOMS!") << 1;
    QTest::newRow("exact before part") << QStringLiteral("Room") << 2;
    QTest::newRow("part of a sentence") << QStringLiteral("To the café, please") << 0;
    QTest::newRow("part of a word") << QStringLiteral("Roommate") << -1;
    QTest::newRow("two at once") << QStringLiteral("Café or room") << -1;
    QTest::newRow("another") << QStringLiteral("Exit") << -1;
    QTest::newRow("nothing") << QString() << -1;
    QTest::newRow("an answer without words") << QStringLiteral("?!") << 3;
}

void OpenQuestionTest::tellsWhichAnswerIsMeant()
{
    QFETCH(QString, said);
    QFETCH(int, answer);
    const OpenQuestion question{QStringLiteral("Where to?"),
                                {QStringLiteral("Café"), QStringLiteral("Meeting rooms"),
                                 QStringLiteral("Room"), QStringLiteral("?!")},
                                QString()};
    QCOMPARE(question.answerIn(said), answer);
}

void OpenQuestionTest::isOpenWithAText()
{
    QVERIFY(!OpenQuestion().isOpen());
    QVERIFY((OpenQuestion{QStringLiteral("Where to?"), {}, QString()}.isOpen()));
}

QTEST_GUILESS_MAIN(OpenQuestionTest)

#include "tst_openquestion.moc"
