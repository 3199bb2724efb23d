// SPDX-License-Identifier: MIT
#include "pages/port/onu_com_session.h"

#include "env/language_module.h"

#include <initializer_list>
#include <utility>

namespace onudesk {

namespace {

constexpr const char* kClient = "1"; // session types
constexpr const char* kServer = "2";
constexpr const char* kDatagrams = "3";
constexpr const char* kNoSession = "0";
constexpr int kFirstTitle = 76301; // of the columns, in their order
constexpr std::size_t kComId = 0;  // positions in the reply
constexpr std::size_t kType = 1;

// Rates as they are listed; the code of each is its place.
ValueMap rateMap() {
    std::vector<ValuePair> rates;
    for (const char* rate : {"300", "600", "1200", "2400", "4800", "9600", "14400", "19200",
                             "38400", "57600", "115200"}) {
        rates.push_back({rate, std::to_string(rates.size())});
    }
    return ValueMap::inOrder(std::move(rates));
}

// Without map the texts are the codes.
Field choice(const char* control, std::size_t column, const char* object, const ValueMap& map) {
    return {.control = control,
            .labelId = kFirstTitle + static_cast<int>(column),
            .kind = ControlKind::combo,
            .object = {object},
            .codes = map,
            .written = Written::always};
}

std::vector<Field> itemFields(const ComSessionMaps& maps) {
    return {choice("comidComb", 0, "ComID", {}),
            choice("typeComb", 1, "ComSessionType", maps.types),
            {.control = "ipEdit",
             .labelId = kFirstTitle + 2,
             .object = {"ComSessionDestIP"},
             .check = dottedQuad(),
             .written = Written::whileEnabled,
             .enabledBy = choiceIn("typeComb", {kClient, kDatagrams})}, // a server has none
            {.control = "portEdit",
             .labelId = 76311,
             .typing = {.digitsOnly = true},
             .object = {"ComSessionPort"},
             .check = numberIn(1, 65535),
             .written = Written::always},
            choice("rateComb", 4, "ComSessionBaudrate", maps.rates),
            choice("parityComb", 5, "ComSessionParitytype", maps.parities),
            choice("dataComb", 6, "ComSessionDatabits", maps.dataBits),
            choice("stopComb", 7, "ComSessionStopbits", maps.stopBits),
            rowStatus({"ComSessionRowStatus"})};
}

} // namespace

ComSessionMaps::ComSessionMaps()
    : types({{"tcpclient", kClient}, {"tcpserver", kServer}, {"udp", kDatagrams}}),
      rates(rateMap()),
      parities({{"none", "0"}, {"even", "1"}, {"odd", "2"}, {"mark", "3"}, {"space", "4"}}),
      dataBits({{"5 (0)", "0"}, {"6 (1)", "1"}, {"7 (2)", "2"}, {"8 (3)", "3"}}),
      stopBits({{"1 (0)", "0"}, {"1.5 (1)", "1"}, {"2 (2)", "2"}}) {}

TOnuComSession::TOnuComSession(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6257,
                .config = {"cfgBtn", message::config},
                .onDecoded = OnDecoded::followsFlag,
                .flagSetsRefresh = true,
                .resultText = "maintable",
                .minimumValues = 11},
               parent) {
    mainTable->setColumns({{.titleId = kFirstTitle, .position = kComId},
                           {.titleId = kFirstTitle + 1, .position = kType, .codes = maps_.types},
                           {.titleId = kFirstTitle + 2, .position = 3},
                           {.titleId = kFirstTitle + 3, .position = 2},
                           {.titleId = kFirstTitle + 4, .position = 4, .codes = maps_.rates},
                           {.titleId = kFirstTitle + 5, .position = 5, .codes = maps_.parities},
                           {.titleId = kFirstTitle + 6, .position = 6, .codes = maps_.dataBits},
                           {.titleId = kFirstTitle + 7, .position = 7, .codes = maps_.stopBits},
                           {.titleId = kFirstTitle + 8, .position = 9},
                           {.titleId = kFirstTitle + 9, .position = 10}});
    editRowsIn([this](int /*row*/) { return new TOnuComSessionItem(*this); });
    deleteRowsBy({.bindings = {{"ComID", kComId}},
                  .rowStatus = {"ComSessionRowStatus"},
                  .instance = [this](const RowCopy& row) {
                      return this->session().OnuIndexText + "." + row.cells[kComId];
                  }});
    start();
}

void TOnuComSession::prepareRefresh() {
    ListPage::prepareRefresh();
    freeComIds_.clear();
}

void TOnuComSession::showReply(const ReadResult& result) {
    ListPage::showReply(result);
    if (result.values[kType] == kNoSession) {
        freeComIds_.insert(leadingNumber(result.values[kComId]).value_or(0));
    }
}

void TOnuComSession::configBtnClick() {
    if (!freeComIds_.empty()) {
        openRow(-1);
    }
}

TOnuComSessionItem::TOnuComSessionItem(TOnuComSession& page)
    : ItemDialog(page,
                 {.name = "TOnuComSessionItem",
                  .fields = itemFields(page.maps()),
                  .ok = {"OKBtn", message::ok},
                  .cancel = {"CancelBtn", message::cancel}},
                 -1) {
    auto* comidComb = fields().control<QComboBox>("comidComb");
    for (const std::int64_t port : page.freeComIds()) {
        comidComb->addItem(QString::number(port));
    }
    using Choice = std::pair<const char*, const char*>;
    for (const auto& [name, text] :
         {Choice("typeComb", "tcpserver"), Choice("rateComb", "115200"),
          Choice("parityComb", "none"), Choice("dataComb", "8 (3)"), Choice("stopComb", "1 (0)")}) {
        selectByText(*fields().control<QComboBox>(name), text);
    }
    fields().enable();
}

} // namespace onudesk
