#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

// What a page may ask and what it is answered: the one table from which hostile requests are made.

/// The kind of value that an attribute is meant to have.
enum class Kind { Anything, Truth, Number, Text, Texts, TextMap, Record, Records };

struct Field
{
    QString name;
    Kind kind;
    QStringList words; ///< texts that mean something
    QVector<Field> members; ///< of a record, or of each record in a map of them
};

struct Request
{
    /// How often the page is answered before the request returns, on the topics of answers.
    enum Answered { AnyNumber, Once };

    QString topic;
    QVector<Field> fields;
    QStringList answers;
    Answered answered = AnyNumber;
};

/// One for each topic that a handler of the library takes.
const QVector<Request> &requests();

/// What may be published later, without another request: ends of mails, playback and recordings.
const QStringList &lateAnswers();
