#pragma once

#include <QByteArray>

#include <initializer_list>

/// What every front-end says and asks: the tables of ConversationTestCase::converse(). A row holds the steps
/// of a conversation and all that the host hears: signals, "[2]" for a status of the click button, "(token)"
/// for a call of the delegate, and "|" where the step of that name was.
namespace Conversations {

void addTable();
/// Adds the row once for each of the \a modes.
void row(const QByteArray &name, const QByteArray &modes, const QByteArray &steps, const QByteArray &said);

/// What the click button makes of pointers and keys.
void addInput();
/// What the answers of the service lead to.
void addAnswers();
/// Popups that are closed and shown again, and attempts that end by themselves.
void addCloses();

/// Something that ends an attempt, and what is said then.
struct End
{
    const char *step;
    const char *said;
};
/// Each of \a ends in each phase of an attempt.
void addEnds(std::initializer_list<End> ends);
/// How long a token lives.
void addLives();

void addDrawingColumns();
/// What the user, the host or the clock do to the captcha, for DrawingTestCase::follow().
void addDrawings();

} // namespace Conversations
