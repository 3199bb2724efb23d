// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/window_driver.h"
#include "host/agent_launcher.h"
#include "host/client_host.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include <QApplication>

#include <gtest/gtest.h>

namespace onudesk::ctl {

// The demonstration agent and the real plug-in in this process, with short time-outs.
class DemoWindow : public testing::Test {
protected:
    void SetUp() override {
        const std::filesystem::path client = ONUDESK_BUILD_CLIENT_DIR;
        auto started = host::AgentLauncher::start(host::demoAgent(client));
        ASSERT_TRUE(started) << started.error();
        agent.emplace(std::move(started).value());
        host::EngineOptions options;
        options.timeoutUnit = std::chrono::milliseconds(50);
        auto opened = host::ClientHost::open(client, options);
        ASSERT_TRUE(opened) << opened.error();
        clientHost = std::move(opened).value();
        target.agentAddress = "127.0.0.1";
        target.port = agent->port();
        target.menuFileName = "epononuother_menu.xml";
        host::useDemoAccess(target);
        ASSERT_TRUE(host::parseOnuIndex("1.2.5", target));
    }
    static QApplication& application() {
        return *qobject_cast<QApplication*>(QApplication::instance());
    }

    std::optional<host::AgentLauncher> agent;
    std::unique_ptr<host::ClientHost> clientHost;
    host::OnuTarget target;
};

} // namespace onudesk::ctl
