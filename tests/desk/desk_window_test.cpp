// SPDX-License-Identifier: MIT
#include "desk/desk_window.h"

#include "base/file.h"
#include "desk_test.h"
#include "sample_entries.h"
#include "support/client_tree.h"

#include <QHeaderView>
#include <QPushButton>
#include <QStatusBar>

namespace onudesk::desk {

namespace {

namespace fs = std::filesystem;
using test::answerBoxes;
using test::submit;
using test::withModal;
using Box = QMessageBox;

constexpr const char* kSchool = "nameEdt=School|agentEdt=10.0.0.1|onuEdt=1.1.1";
constexpr const char* kLab = "nameEdt=lab|readCommunityEdt=look";

class DeskWindowTest : public testing::Test {
protected:
    test::TemporaryDirectory directory;
    fs::path folder = directory.path() / "list";
    fs::path file = folder / "inventory.json";
    DeskWindow window{{.clientDirectory = directory.path() / "client"}};

    void openSample() {
        directory.write("list/inventory.json", formatInventory(test::sampleInventory()));
        window.openInventory(file);
    }
    [[nodiscard]] Inventory saved() const { return InventoryFile(file).load().value(); }
    // The cells of a column, and the entry that is selected.
    [[nodiscard]] std::string column(int number) const {
        std::string text;
        for (int row = 0; row < window.onuTable->rowCount(); ++row) {
            text +=
                (row == 0 ? "" : ",") + window.onuTable->item(row, number)->text().toStdString();
        }
        return text + " > " + window.onuTable->selectedName();
    }
    [[nodiscard]] std::string status() const {
        return window.statusBar()->currentMessage().toStdString();
    }
    [[nodiscard]] std::string usable() const {
        std::string names;
        for (const QAction* action : {window.configureAct, window.addAct, window.editAct,
                                      window.removeAct, window.profilesAct, window.saveAct}) {
            names += action->isEnabled() ? action->objectName().toStdString() + ' ' : "";
        }
        return names;
    }
    // Enters an entry. The problem, when it is refused and the dialog cancelled.
    static std::string edit(QAction* action, const std::string& entry) {
        std::string problem;
        withModal([&] { action->trigger(); },
                  [&](QWidget& modal) {
                      submit(modal, entry);
                      if (modal.isVisible()) {
                          problem = test::problemIn(modal);
                          test::press(modal, QDialogButtonBox::Cancel);
                      }
                  });
        return problem;
    }
    void addProfile(const char* entry) {
        withModal([this] { window.profilesAct->trigger(); },
                  [&](QWidget& profiles) {
                      withModal([&] { test::control<QPushButton>(profiles, "addBtn").click(); },
                                [&](QWidget& modal) { submit(modal, entry); });
                      test::control<QPushButton>(profiles, "closeBtn").click();
                  });
    }
    std::string remove(Box::StandardButton answer) {
        return answerBoxes([this] { window.removeAct->trigger(); }, {answer});
    }
    // Until unblock(), nothing can be written where the file is.
    void block() const {
        fs::rename(folder, folder.string() + ".away");
        directory.write("list", "in the way");
    }
    void unblock() const {
        fs::remove(folder);
        fs::rename(folder.string() + ".away", folder);
    }
};

TEST_F(DeskWindowTest, EveryEditIsShownAndSavedAtOnce) {
    window.openInventory(file);
    EXPECT_EQ(usable(), "addAct profilesAct ");
    openSample();
    EXPECT_EQ(usable(), "configureAct addAct editAct removeAct profilesAct ");
    EXPECT_EQ(column(0) + column(1) + column(2) + column(3) + column(4),
              "Town hall > Town hall10.0.0.1:1161 > Town hall1.2.5 > Town hall"
              "epononu4470_menu.xml > Town hallfield > Town hall");
    struct Step {
        std::function<std::string()> act;
        const char* told;
        const char* shown;
    };
    const Step steps[] = {
        {[&] { return edit(window.addAct, kSchool); }, "", "School,Town hall > School"},
        {[&] { return edit(window.addAct, "nameEdt=Town hall|agentEdt=10.0.0.1|onuEdt=1.1.2"); },
         "There is already an ONU \"Town hall\"", "School,Town hall > School"},
        {[&] { return edit(window.editAct, "nameEdt=City school|agentEdt=olt-7:161"); }, "",
         "City school,Town hall > City school"},
        {[&] { return remove(Box::No); }, "Remove \"City school\" from the list?",
         "City school,Town hall > City school"},
        {[&] { return remove(Box::Yes); }, "Remove \"City school\" from the list?",
         "Town hall > Town hall"},
        {[&] { return addProfile(kLab), std::string(); }, "", "Town hall > Town hall"},
        {[&] { return remove(Box::Yes); }, "Remove \"Town hall\" from the list?", " > "},
    };
    for (const Step& step : steps) {
        EXPECT_EQ(step.act(), step.told);
        EXPECT_EQ(column(0), step.shown);
        EXPECT_EQ(saved(), window.inventory());
        EXPECT_FALSE(window.isWindowModified());
        EXPECT_EQ(status(), "Saved");
        if (window.inventory().onus().contains("City school")) {
            EXPECT_EQ(saved().onus().at("City school").agent, "olt-7:161");
            EXPECT_EQ(saved().onus().at("City school").menuFile, kGeneralMenu);
        }
    }
    EXPECT_TRUE(saved().profiles().contains("lab"));
    EXPECT_EQ(usable(), "addAct profilesAct ");
}

TEST_F(DeskWindowTest, NumbersInTextsSortByValueAndTheSelectionStays) {
    openSample();
    edit(window.addAct, "nameEdt=ONU 10|agentEdt=10.0.0.1|onuEdt=1.2.10");
    edit(window.addAct, "nameEdt=ONU 9|agentEdt=10.0.0.1|onuEdt=1.2.9");
    window.onuTable->sortByColumn(2, Qt::AscendingOrder);
    EXPECT_EQ(column(2), "1.2.5,1.2.9,1.2.10 > ONU 9");
    window.onuTable->sortByColumn(0, Qt::DescendingOrder);
    EXPECT_EQ(column(0), "Town hall,ONU 10,ONU 9 > ONU 9");
    // The order outlives a change of the list, and edits go to the entry, not to the row.
    window.selectOnu("1.2.10");
    remove(Box::Yes);
    EXPECT_FALSE(saved().onus().contains("ONU 10"));
    EXPECT_TRUE(column(0).starts_with("Town hall,ONU 9 > "));
}

TEST_F(DeskWindowTest, EditsThatCannotBeSavedStayUntilTheyAreSavedOrGivenUp) {
    openSample();
    window.show();
    const auto quit = [this](std::deque<Box::StandardButton> answers) {
        answerBoxes([this] { window.quitAct->trigger(); }, std::move(answers));
        return !window.isVisible();
    };
    block();
    const std::string box = answerBoxes([this] { edit(window.addAct, kSchool); });
    EXPECT_NE(box.find(folder.string()), std::string::npos) << box;
    EXPECT_EQ(status(), box);
    EXPECT_EQ(column(0), "School,Town hall > School");
    EXPECT_TRUE(window.isWindowModified() && window.saveAct->isEnabled());
    EXPECT_FALSE(quit({Box::Cancel}));
    EXPECT_FALSE(quit({Box::Save, Box::Ok})) << "saving fails again";
    unblock();
    EXPECT_EQ(saved(), test::sampleInventory());
    window.saveAct->trigger();
    EXPECT_EQ(saved(), window.inventory());
    EXPECT_FALSE(window.isWindowModified() || window.saveAct->isEnabled());

    block();
    answerBoxes([this] { addProfile(kLab); });
    unblock();
    EXPECT_TRUE(quit({Box::Save}));
    EXPECT_TRUE(saved().profiles().contains("lab"));
    window.show();
    block();
    answerBoxes([this] { addProfile("nameEdt=other|readCommunityEdt=look"); });
    EXPECT_TRUE(quit({Box::Discard}));
    unblock();
    EXPECT_FALSE(saved().profiles().contains("other"));
}

TEST_F(DeskWindowTest, BadFileIsToldAndKept) {
    const std::string bad = "{\"format\":1,<b>";
    directory.write("list/inventory.json", bad);
    const std::string box = answerBoxes([this] { window.openInventory(file); });
    EXPECT_NE(box.find(file.string()), std::string::npos) << box;
    EXPECT_EQ(column(0), " > ");
    EXPECT_EQ(*readFile(file), bad);
    addProfile(kLab);
    EXPECT_TRUE(saved().profiles().contains("lab"));
    EXPECT_EQ(*readFile(folder / "inventory.json.kept"), bad);
    EXPECT_NE(status().find("inventory.json.kept"), std::string::npos) << status();
}

TEST_F(DeskWindowTest, WithoutAFileNothingIsWrittenOrAsked) {
    DeskWindow demo({.clientDirectory = directory.path()}, test::sampleInventory());
    demo.show();
    answerBoxes([&] { demo.removeAct->trigger(); }, {Box::Yes});
    EXPECT_EQ(demo.onuTable->rowCount(), 0);
    EXPECT_FALSE(demo.isWindowModified());
    demo.quitAct->trigger();
    EXPECT_FALSE(demo.isVisible());
    EXPECT_TRUE(fs::is_empty(directory.path()));
}

TEST_F(DeskWindowTest, DoubleClickConfiguresAndNamesAClientThatIsNone) {
    openSample();
    const std::string before = usable();
    const std::string box =
        answerBoxes([this] { Q_EMIT window.onuTable->cellDoubleClicked(0, 1); });
    EXPECT_NE(box.find((directory.path() / "client").string()), std::string::npos) << box;
    EXPECT_EQ(status(), box);
    EXPECT_EQ(usable(), before);
    EXPECT_TRUE(window.onuTable->isEnabled());
}

TEST(MakeTarget, TakesEverythingFromEntryAndProfile) {
    host::OnuTarget address;
    address.agentAddress = "10.0.0.9";
    address.port = 1161;
    OnuEntry onu = test::sampleOnu();
    const auto expect = [&](const AccessProfile& profile, std::uint32_t locale) {
        const host::OnuTarget made = makeTarget(address, onu, profile, 2052);
        EXPECT_EQ(made.agentAddress + ":" + std::to_string(made.port), "10.0.0.9:1161");
        EXPECT_EQ(made.version, profile.version);
        EXPECT_EQ(made.readCommunity, profile.readCommunity);
        EXPECT_EQ(made.writeCommunity, profile.writeCommunity);
        EXPECT_EQ(made.v3, profile.v3);
        EXPECT_EQ((std::vector{made.oltNumber, made.ponNumber, made.onuNumber, made.subIndex}),
                  (std::vector{1, 2, 5, -1}));
        EXPECT_EQ(made.menuFileName + made.rootCaption, "epononu4470_menu.xmlTown hall");
        EXPECT_EQ(made.localeId, locale);
    };
    expect(test::communityProfile(), 2052);
    onu.localeId = 1033;
    expect(test::v3Profile(), 1033);
}

} // namespace

} // namespace onudesk::desk
