#pragma once
/*
 * What the fake tool plug-in answers and shows; shared by the fake and the
 * tests that drive it.
 */
namespace FakeTool {
constexpr const char *kName = "Fake Tool";
constexpr const char *kUnsupportedReason = "fake tool: no TD-SCDMA on this target";
constexpr const char *kAnswerVariable = "TAVO_FAKE_TOOL_ANSWER";
constexpr const char *kTraceLine = "fake tool: arming the target"; // debug trace of ShowTool
constexpr int kPrepareMs = 300;
constexpr int kWindowWidth = 400;
constexpr int kWindowHeight = 300;
} // namespace FakeTool
