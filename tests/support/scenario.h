// Scenarios of tests/data/events: start state, call, events, state afterwards. docs/testing.md tells how they read.
#pragma once

#include "support/bench.h"

namespace pyxis::test {

// A room's scenarios by their names, and a run of one of them, each of its rows on each transport.
Texts ScenariosOf(const std::string& room);
void RunScenario(const std::string& room, const std::string& name);
std::string TestName(const ::testing::TestParamInfo<std::string>& info);

}  // namespace pyxis::test

#define PYXIS_SCENARIOS(room)                                                                    \
  class Scenarios : public ::testing::TestWithParam<std::string> {};                             \
  TEST_P(Scenarios, Run) { ::pyxis::test::RunScenario(room, GetParam()); }                       \
  INSTANTIATE_TEST_SUITE_P(Of, Scenarios, ::testing::ValuesIn(::pyxis::test::ScenariosOf(room)), \
                           ::pyxis::test::TestName)
