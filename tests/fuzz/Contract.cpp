#include "tests/fuzz/Contract.h"

namespace {

using Fields = QVector<Field>;

QString text(const char *latin1) { return QString::fromLatin1(latin1); }

QStringList list(const char *words)
{
    return QString::fromLatin1(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

Field field(const char *name, Kind kind) { return {text(name), kind, {}, {}}; }
Field truth(const char *name) { return field(name, Kind::Truth); }
Field number(const char *name) { return field(name, Kind::Number); }
Field anything(const char *name) { return field(name, Kind::Anything); }
Field words(const char *name, const char *known = "")
{
    return {text(name), Kind::Text, list(known), {}};
}
Field record(const char *name, const Fields &members)
{
    return {text(name), Kind::Record, {}, members};
}

Fields id() { return {number("id"), words("uuid", "{3f2b8c1e-5d47-4e0a-b6c9-8d1e2f3a4b03}")}; }

Fields replica()
{
    return {record("id", id()),
            record("anchor", id()),
            record("category", id()),
            words("text"),
            words("screen_text"),
            words("url", "file:///a.html http://[::1]:70000/%zz"),
            words("actions", "nod,point , ,,,"),
            number("animation"),
            number("type")};
}

Fields answer()
{
    return {record("id", id()), number("source"),  record("id_pattern", id()),
            words("pattern"),   words("question"), record("replica", replica())};
}

Fields face()
{
    return {number("id"),
            number("id_track"),
            number("type"),
            number("gender"),
            truth("is_tracking"),
            number("age"),
            words("emotion"),
            {text("matches"), Kind::Records, {}, {number("type"), number("id"), number("score")}}};
}

Fields call(const char *what)
{
    return {words("number", "100"), words(what, "/tmp/none.wav"), number("recall_count")};
}

/// What a replica is asked for with.
Fields choice()
{
    return {words("step", "welcome"), record("category", id()), truth("use_general"),
            truth("use_biometry"), record("face", face())};
}

Fields scan(const Fields &settings = {})
{
    return settings + Fields{number("timeout"), truth("ignore_not_connected")};
}

QVector<Request> table()
{
    return {
        {text("system.log"),
         {words("level", "debug info warning critical CRITICAL"), words("message")},
         {}},
        {text("system.statistic"),
         {words("topic", "visits .. a/b"), field("data", Kind::Texts)},
         {}},
        {text("system.interaction.control"), {words("state", "Start Stop")}, {}},
        {text("system.language.set"), {words("language", "en")}, {}},
        {text("system.scripts.control"),
         {words("start", "welcome"), anything("stop")},
         list("system.scripts.start.result")},
        {text("dialog.say"),
         choice()
             + Fields{words("text"), field("macroses", Kind::TextMap), record("replica", replica()),
                      record("answer", answer()), truth("terminate")},
         {}},
        {text("dialog.robot.replic.abort"), {}, {}},
        {text("dialog.replica.get"), choice() + Fields{number("replica_type")},
         list("dialog.replica.load")},
        {text("face.recognize.control"),
         {truth("tracking_auto"), number("tracking_face"), number("add_face"), number("del_face"),
          truth("head_enabled")},
         {}},
        {text("system.general.touch"),
         {number("x"), number("y"), anything("rect"), anything("info")},
         list("system.general.setted")},
        {text("database.user.request"),
         {number("get_user"),
          record("add_user",
                 {number("id"), words("name"), number("age"), number("gender"),
                  anything("extra_data")}),
          number("del_user")},
         list("database.user.response"),
         Request::Once},
        {text("operator.call.request"), {truth("call")}, {}},
        {text("printer.print"),
         {words("data", "data:image/png;base64, iVBORw0KGgo= data:image/png;base64,iVBORw0KGgo="),
          truth("ignore_not_connected")},
         list("printer.success printer.error printer.nopaper printer.noprinter printer.paper.low")},
        {text("printer.state"), {truth("ignore_not_connected")}, list("printer.state.info")},
        {text("dispenser.dispense"),
         {truth("ignore_not_connected")},
         list("dispenser.nodispenser dispenser.not.connected")},
        {text("scanner.document.request"),
         scan({number("mode"), number("brightness"), number("resolution")}),
         list("scanner.document.response"), Request::Once},
        {text("scanner.passport.request"), scan(), list("scanner.passport.response"),
         Request::Once},
        {text("system.drive.control"),
         {number("drive_point"), truth("drive_pause"), number("drive_mode"),
          truth("drive_charger")},
         {}},
        {text("keyboard.control.request"),
         {anything("get_locale"), anything("is_visible"), words("set_locale", "de_DE"),
          anything("show"), anything("hide")},
         list("keyboard.control.response")},
        {text("system.settings.get"),
         {words("settings_type", "application system"), words("group", "sound"),
          words("name", "volume")},
         list("system.settings.load"),
         Request::Once},
        {text("system.environment.get"), {}, list("system.environment.load"), Request::Once},
        {text("system.sound.properties"),
         {anything("get_volume"), number("set_volume"), anything("get_mic"), number("set_mic")},
         list("system.sound.load")},
        {text("system.play.external"),
         {words("url", "file:///none.wav"), number("volume"), anything("stop")},
         list("system.play.status")},
        {text("record.audio.request"),
         {anything("start"), number("timeout"), anything("stop")},
         list("record.audio.response")},
        {text("sip.control"),
         {record("call_start", {words("number", "100")}), record("play_file", call("file")),
          record("play_text", call("text")), anything("clear_queue"), anything("call_stop")},
         list("sip.call.response sip.file.response sip.text.response")},
        {text("mail.sender.request"),
         {words("email", "ann@example.com"), words("subject"), words("body"), words("filename")},
         {}},
        {text("dialog.question.answer"), {words("text", "Yes")}, {}},
    };
}

} // namespace

const QVector<Request> &requests()
{
    static const QVector<Request> all = table();
    return all;
}

const QStringList &lateAnswers()
{
    static const QStringList topics =
        list("mail.sender.response system.play.status record.audio.response");
    return topics;
}
