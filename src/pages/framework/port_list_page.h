// SPDX-License-Identifier: MIT
//
// A list page that reads one port at a time.
#pragma once

#include "pages/framework/list_page.h"

#include <cstddef>
#include <cstdint>
#include <string>

#include <QComboBox>

namespace onudesk {

struct PortRules {
    std::size_t countPosition = 0; // of the ONU's number of ports in every reply
};

// Above the list stands portComb, which the first reply with a port count fills. A change of the
// operator's reads the port; every refresh reads the port that is chosen.
class PortListPage : public ListPage {
    Q_OBJECT
public:
    PortListPage(Session& session, std::int32_t itemType, PageRules rules, PortRules ports,
                 QWidget* parent);

    QComboBox* portComb = nullptr;

    [[nodiscard]] const PortRules& ports() const { return ports_; }
    // The port of reads and writes, empty before the ports are known.
    [[nodiscard]] virtual std::string port() const;

    void portCombChange() { refreshBtnClick(); }

protected:
    void prepareRefresh() override;
    void rowArrived(int row, const ReadResult& result) override;

private:
    void fillPorts(const std::string& count);

    const PortRules ports_;
};

} // namespace onudesk
