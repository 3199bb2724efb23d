// SPDX-License-Identifier: MIT
#include "ctl/script_runner.h"

#include "onudesk/messages.h"
#include "script_window.h"
#include "support/client_tree.h"
#include "watched_text.h"

#include <sstream>

#include <QImage>
#include <QJsonDocument>
#include <QTimer>

#include <gtest/gtest.h>

namespace onudesk::ctl {
namespace {

using host::RequestKind;

// A window, an operator and a script.
struct Stage {
    // Runs the script on the window, and ends when the window closed.
    ExitCode run(const std::string& script) {
        auto steps = parseScript(script);
        if (!steps) {
            ADD_FAILURE() << steps.error();
            return exitUsage;
        }
        runner.emplace(std::move(steps).value(),
                       RunTools{.window = window,
                                .recorder = recorder,
                                .observation = observation,
                                .out = out,
                                .err = err,
                                .interruptions = [this] { return interruptions; },
                                .scriptName = "s",
                                .json = json,
                                .watch = watch});
        QTimer::singleShot(0, &window.dialog(), [this] { runner->start(); });
        window.dialog().exec();
        const ExitCode outcome = runner->finish();
        EXPECT_FALSE(window.dialog().isVisible());
        return outcome;
    }
    void reply(RequestKind kind, std::int32_t status, const char* text) {
        observation.observer().onReply({.kind = kind, .error = {.status = status, .text = text}});
    }

    void expectOk(const std::string& script) {
        EXPECT_EQ(run(script), exitOk) << script << ": " << errors.str();
    }
    // What the handlers saw.
    [[nodiscard]] std::string log() const {
        return window.log.join(QStringLiteral(", ")).toStdString();
    }
    [[nodiscard]] bool told(const char* text) const {
        return errors.str().find(text) != std::string::npos;
    }

    ScriptWindow window;
    Recorder recorder;
    std::ostringstream out;
    WatchedText errors;
    std::ostream err{&errors};
    bool json = false;
    bool watch = false;
    int interruptions = 0;
    Observation observation{nullptr, host::SecretMask({"hunter2"})};
    std::optional<ScriptRunner> runner;
};

TEST(ScriptRunner, WorksEveryKindOfControl) {
    Stage stage;
    stage.expectOk(R"(open 617
set numberEdit 123
set numberEdit 45
expect numberEdit text 45
expect numberEdit focus true
key Backspace
expect numberEdit text 4
key Tab
expect macEdit focus true
set macEdit 0a:1b
expect macEdit text 0a:1b
set macEdit "0c:__"
set macEdit ""
expect macEdit text "__:__"
set phraseEdit secret
set memo "one\ntwo"
expect memo text "one\ntwo"
key A
expect memo text "one\ntwoa"
set memo ""
select modeComb fast
select modeComb fast
expect modeComb index 2
expect modeComb items "off, slow, fast"
check plainChk on
check plainChk on
expect plainChk checked true
check plainChk off
expect plainChk checked false
check secondRadio on
expect firstRadio checked false
row mainTable 39
expect mainTable selected 39
expect mainTable row:39 "39.1 | 39.2"
expect mainTable rows 40
row mainTable none
expect mainTable selected -1
click fewBtn
row mainTable 1
row mainTable none
expect mainTable selected -1
expect mainTable rows 2
click timerBtn
expect Timer1 enabled true
elapse
expect Timer1 enabled false
expect hint visible false
expect emptyBtn enabled false
expect TOnuRows visible true
)");
    EXPECT_EQ(stage.window.opened, 617);
    EXPECT_EQ(stage.window.log.count(QStringLiteral("mode fast")), 1);
    EXPECT_FALSE(stage.window.log.contains(QStringLiteral("mode slow"))) << "only the picked one";
    EXPECT_TRUE(stage.log().starts_with("edited 1, edited 12, edited 123, edited 4, edited 45,"))
        << stage.log();
    EXPECT_EQ(stage.window.log.count(QStringLiteral("row released")), 3)
        << "with rows down to the bottom there is no place beside them";
    EXPECT_EQ(stage.window.log.back(), QStringLiteral("page timer"));
}

TEST(ScriptRunner, StepsThatCannotBeDoneEndTheRunWithTheirLine) {
    const std::pair<const char*, const char*> cases[] = {
        {"\n\nclick nowhere", "s: line 3: there is no control nowhere"},
        {"click emptyBtn", "line 1: emptyBtn is disabled"},
        {"click hint", "hint is hidden"},
        {"click Timer1", "Timer1 cannot be worked"},
        {"set fixedEdit 1", "fixedEdit is read-only"},
        {"set plainChk 1", "plainChk cannot be typed into"},
        {"set numberEdit 12a", "numberEdit shows \"12\" after typing"},
        {"set numberEdit 1234", "numberEdit shows \"123\""},
        {"set macEdit 0a", "macEdit shows \"0a:__\""},
        {"set memo \"a\\nb\"\nset memo c\nexpect memo text \"a\\nb\"",
         "line 3: memo text is \"c\""},
        {"select modeComb warp", "has no item \"warp\"; it has \"off\", \"slow\", \"fast\""},
        {"select macEdit a", "macEdit is no combo box"},
        {"check stubbornChk on", "stubbornChk is still off"},
        {"check firstRadio off", "firstRadio is a radio button"},
        {"check addBtn on", "addBtn is no check box"},
        {"row mainTable 40", "mainTable has 40 rows"},
        {"row memo 0", "memo is no table"},
        {"doubleclick mainTable 41", "mainTable has 40 rows"},
        {"elapse", "Timer1 is not running"},
        {"open 404", "item 404: the menu has no such item"},
        {"expect numberEdit text 5", "numberEdit text is \"\", wanted \"5\""},
        {"expect numberEdit checked true", "numberEdit has no checked"},
        {"expect mainTable row:40 x", "mainTable has no row:40"},
        {"expect writes 1", "writes are 0, wanted 1"},
        {"expect box none a b", "there is no box, wanted none \"a\" \"b\""},
        {"click tellBtn\nexpect nobox", "line 2: there is a box: information \"Notice\" \"done\""},
        {"click tellBtn\nexpect box warning Notice done", "the box is information"},
        {"click tellBtn\nexpect box information Notice \"done.\"", "wanted information"},
        {"click tellBtn\nanswer ok\nanswer ok", "line 3: no box was shown"},
        {"answer yes", "no question is open"},
        {"click refuseBtn\nwait\nclick tellBtn", "line 3: unexpected box none \"Attention\""},
        {"click refuseBtn", "end of script: unexpected box"},
        {"click deleteBtn\nclick tellBtn", "line 2: unanswered question \"Delete?\""},
        {"click deleteBtn\nwait", "line 2: unanswered question \"Delete?\""},
        {"click deleteBtn", "end of script: unanswered question \"Delete?\""},
        {"click deleteBtn\nanswer ok", "must be answered yes or no: \"Delete?\""},
        {"click addBtn\nclick refuseBtn", "line 2: refuseBtn is behind the open dialog"},
        {"click addBtn\nopen 617", "behind the open dialog"},
        {"click closeBtn\nexpect nobox", "line 2: the window is closed"},
        {"expect numberEdit text hunter2", "numberEdit text is \"\", wanted \"•••\""},
    };
    for (const auto& [script, reason] : cases) {
        Stage stage;
        EXPECT_EQ(stage.run(script), exitScriptFailed) << script;
        EXPECT_TRUE(stage.told(reason)) << script << ": " << stage.errors.str();
    }
}

TEST(ScriptRunner, DialogsRunTheStepsUntilTheyClose) {
    Stage stage;
    stage.expectOk(R"(set numberEdit 7
click addBtn
expect numberEdit text ""
set numberEdit 8
elapse
click innerBtn
set numberEdit 9
click okBtn
expect numberEdit text 8
expect hint text "innerDialog accepted"
click okBtn
expect hint text "addDialog accepted"
expect numberEdit text 7
expect writes 0
)");
    EXPECT_EQ(stage.log(), "edited 7, dialog timer, innerDialog accepted, addDialog accepted");
}

TEST(ScriptRunner, TheDialogOfADoubleClickTakesItsSecondRelease) {
    Stage stage;
    stage.expectOk("doubleclick mainTable 3\nexpect mainTable selected 3\nclick okBtn");
    EXPECT_EQ(stage.log(), "row released, rowDialog accepted");
}

TEST(ScriptRunner, QuestionsStayOpenUntilAnswered) {
    const std::pair<const char*, const char*> cases[] = {
        {"click deleteBtn\nanswer no\nexpect writes 0", "kept"},
        {"click deleteBtn\nexpect box warning Question Delete?\nanswer yes\n"
         "expect box warning Question \"All of them?\"\nanswer yes\nexpect nobox\nclick tellBtn",
         "deleted"},
        {"click deleteBtn\nanswer yes\nanswer no\nclick tellBtn\nanswer ok", "kept"},
    };
    for (const auto& [script, log] : cases) {
        Stage stage;
        stage.expectOk(script);
        EXPECT_EQ(stage.log(), log);
    }
    // What the answer undoes is no failure of the click.
    Stage().expectOk("check askingChk on\nexpect askingChk checked true\nanswer no\n"
                     "expect askingChk checked false");
}

TEST(ScriptRunner, EndsInsideDialogsCloseThemFromTheInsideOut) {
    for (const char* end : {"", "\nclick nowhere", "\nclick askBtn", "\nclick askBtn\nwait"}) {
        Stage stage;
        const std::string script = std::string("click addBtn\nclick innerBtn") + end;
        EXPECT_EQ(stage.run(script), *end == '\0' ? exitOk : exitScriptFailed) << script;
        EXPECT_EQ(stage.log(), "innerDialog asks, innerDialog rejected, addDialog asks, "
                               "addDialog rejected")
            << script;
    }
}

TEST(ScriptRunner, WaitsUntilEverythingIsAnswered) {
    Stage stage;
    stage.window.busy = 3;
    stage.watch = true;
    stage.expectOk("wait\nexpect nobox");
    EXPECT_EQ(stage.window.busy, 0);
    EXPECT_EQ(stage.errors.str(), "1: wait\n2: expect nobox\n") << "each step once";
    Stage atEnd;
    atEnd.window.busy = 3;
    atEnd.expectOk("");
    EXPECT_EQ(atEnd.window.busy, 0) << "a script ends with everything answered";

    Stage late;
    late.window.busy = 3;
    late.window.whileBusy = [&] {
        if (late.window.busy == 1) {
            late.reply(RequestKind::read, 5, "genErr");
        }
    };
    EXPECT_EQ(late.run(""), exitAgentError) << "the last answer counts";
}

TEST(ScriptRunner, ErrorsOfTheAgentDecideTheExitStatus) {
    struct Case {
        const char* script;
        RequestKind kind;
        std::int32_t status;
        ExitCode outcome;
        const char* told;
    };
    const Case cases[] = {
        {"click refuseBtn\nexpect box none Attention \"no: genErr\"", RequestKind::write, 5, exitOk,
         ""},
        {"click refuseBtn\nclick tellBtn", RequestKind::write, 5, exitAgentError,
         "line 2: unexpected box none"},
        {"click tellBtn", RequestKind::write, 5, exitAgentError, "end of script: genErr"},
        {"wait\nclick tellBtn", RequestKind::read, 5, exitAgentError, "end of script: genErr"},
        {"click nowhere", RequestKind::read, 5, exitScriptFailed, "line 1: there is no"},
        {"click tellBtn\nwait\nclick nowhere", RequestKind::read, error_status::timeout,
         exitConnectionFailed, "line 2: genErr"},
        {"wait", RequestKind::write, error_status::unknownUser, exitConnectionFailed, "line 1"},
        {"click tellBtn", RequestKind::read, error_status::timeout, exitConnectionFailed,
         "end of script: genErr"},
        {"wait", RequestKind::read, error_status::walkRefused, exitAgentError, "end of script"},
        {"wait", RequestKind::read, error_status::noPlan, exitClientFailed, "end of script"},
    };
    for (const Case& expected : cases) {
        Stage stage;
        stage.reply(expected.kind, expected.status, "genErr");
        EXPECT_EQ(stage.run(expected.script), expected.outcome) << expected.script;
        EXPECT_TRUE(stage.told(expected.told)) << expected.script << ": " << stage.errors.str();
        EXPECT_EQ(stage.errors.str().empty(), expected.outcome == exitOk);
    }
}

TEST(ScriptRunner, InterruptionsEndTheStepAtHandAndThenTheWaiting) {
    Stage patient;
    patient.window.busy = 5;
    patient.window.whileBusy = [&] {
        if (patient.window.busy == 3) {
            patient.interruptions = 1;
        }
    };
    EXPECT_EQ(patient.run("click addBtn\nwait\nclick okBtn"), exitInterrupted);
    EXPECT_TRUE(patient.told("s: line 2: interrupted"));
    EXPECT_EQ(patient.window.busy, 0) << "what was asked is answered";
    EXPECT_EQ(patient.window.log.back(), QStringLiteral("addDialog rejected"));

    Stage urgent;
    urgent.window.busy = -1;
    urgent.window.whileBusy = [&] { urgent.interruptions = 1; };
    urgent.errors.text = "interrupted";
    urgent.errors.act = [&] {
        urgent.window.whileBusy = {};
        urgent.interruptions = 2;
    };
    EXPECT_EQ(urgent.run("wait"), exitInterrupted) << "though the agent never answers";
}

TEST(ScriptRunner, PrintsTextOrJson) {
    const std::string script = "click fewBtn\nset numberEdit 5\nprint numberEdit\nclick tellBtn\n"
                               "print boxes\nprint tables\nprint writes\nprint page";
    const auto written = [](Stage& stage) {
        stage.observation.observer().onRequest(
            {.kind = RequestKind::write,
             .itemType = 617,
             .suffix = ".1.2",
             .bindings = {{.name = "a", .oid = "1.3.1", .type = 4, .value = "text"},
                          {.name = "b", .oid = "1.3.2", .type = 4, .value = "hunter2"},
                          {.name = "c", .oid = "1.3.3", .type = 4, .value = "\x01\xFF"}}});
    };
    Stage text;
    written(text);
    text.expectOk(script);
    EXPECT_EQ(text.out.str().find("numberEdit           edit   \"5\"\n"
                                  "box information \"Notice\" \"done\"\n"
                                  "mainTable            table  \n"
                                  "    0.1 | 0.2\n    1.1 | 1.2\n"
                                  "write 617 .1.2\n"
                                  "    a 1.3.1 \"text\"\n"
                                  "    b 1.3.2 \"•••\"\n"
                                  "    c 1.3.3 0x01FF\n"
                                  "0 TOnuRows \"Rows\"\n"),
              0U)
        << text.out.str();

    Stage json;
    written(json);
    json.json = true;
    json.expectOk(script);
    std::istringstream lines(json.out.str());
    std::vector<QJsonObject> objects;
    for (std::string line; std::getline(lines, line);) {
        objects.push_back(QJsonDocument::fromJson(QByteArray::fromStdString(line)).object());
    }
    ASSERT_EQ(objects.size(), 5U);
    EXPECT_EQ(objects[0][QLatin1String("text")], QStringLiteral("5"));
    EXPECT_EQ(objects[1][QLatin1String("caption")], QStringLiteral("Notice"));
    EXPECT_EQ(objects[2][QLatin1String("name")], QStringLiteral("mainTable"));
    EXPECT_EQ(objects[3][QLatin1String("item")], 617);
    EXPECT_EQ(objects[4][QLatin1String("class")], QStringLiteral("TOnuRows"));
    EXPECT_EQ(json.out.str().find("hunter2"), std::string::npos);

    Stage nested;
    nested.expectOk("click addBtn\nclick innerBtn\nprint page\nclick okBtn\nclick okBtn");
    const auto outer = nested.out.str().find("dialog addDialog \"addDialog\"\n");
    EXPECT_NE(outer, std::string::npos) << nested.out.str();
    EXPECT_LT(outer, nested.out.str().find("dialog innerDialog \"innerDialog\"\n"));
}

TEST(ScriptRunner, PicturesShowTheDialogWhereItIs) {
    const test::TemporaryDirectory directory;
    const std::string plain = (directory.path() / "plain.png").string();
    const std::string covered = (directory.path() / "covered.png").string();
    Stage stage;
    stage.expectOk("screenshot " + plain + "\nclick addBtn\nscreenshot " + covered +
                   "\nclick okBtn");
    const auto reds = [](const std::string& file) {
        const QImage picture(QString::fromStdString(file));
        int count = 0;
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                count += picture.pixelColor(x, y) == QColor(Qt::red) ? 1 : 0;
            }
        }
        return count;
    };
    EXPECT_EQ(reds(plain), 0);
    EXPECT_GT(reds(covered), 1000);
    Stage failing;
    EXPECT_EQ(failing.run("screenshot /nowhere/p.png"), exitClientFailed);
    EXPECT_TRUE(failing.told("line 1: /nowhere/p.png"));
}

} // namespace
} // namespace onudesk::ctl
