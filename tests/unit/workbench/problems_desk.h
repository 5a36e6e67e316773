#pragma once

#include "controls/user_hands.h"
#include "unit/shell/program.h"
#include "workbench/frm_workbench.h"
#include "workbench/problems_pane.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace zb::test {

inline constexpr const char* kMessages =
    "* d\r\nAsk: S1 F17 H->E.\r\n"
    "* d\r\nAnswer: S1 F18 H<-E\r\n    B 1 ONLACK 0.\r\n"
    "* d\r\nReport: S6 F11 W H<-E\r\n    L 2\r\n        U4 1 DATAID 0\r\n"
    "        U4 1 LOT 5\r\n        A 3 LOT 'ab'.\r\n";

/// A user at the pane Problems, with a project of equipment.
struct ProblemsDesk : ::testing::Test {
    void open(const std::string& messages, const std::string& model = {}) {
        const std::string path = (folder / "P.zbp").string();
        std::ofstream(path, std::ios::binary)
            << "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n"
            << messages << model;
        application.start(path);
        pane.finish();
        pane.open();
    }

    std::vector<std::string> rows() {
        pane.finish();
        std::vector<std::string> rows;
        for (const ListRow* row : pane.lvwProblems.shown())
            rows.push_back(row->text() + " | " + row->cell(1) + " | " + row->cell(2));
        return rows;
    }

    /// What is to be done at once is done, as between two actions.
    void runSlice() {
        const auto later = std::exchange(program.screen.later, {});
        for (const auto& each : later)
            if (each.delay.count() == 0)
                each.run();
    }

    Target row(std::size_t number) {
        Target target = Target::whole(pane.lvwProblems);
        target.row = pane.lvwProblems.shown()[number - 1];
        return target;
    }

    TemporaryFolder folder;
    SystemFileLayer files;
    Program program{files};
    Application& application = program.application;
    frmSECSEditor& editor = application.frmSECSEditor;
    ProblemsPane& pane = application.frmWorkbench.problems;
    UserHands hands{application.desktop};
};

inline constexpr const char* kCount =
    "error | Report 1 | The count of sub items is not correct. Change the item count";
inline constexpr const char* kName = "error | Report 1/3 | The name of this item be duplicated";

} // namespace zb::test
