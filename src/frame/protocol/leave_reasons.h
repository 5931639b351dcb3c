#pragma once
// Why a text process leaves its loop, or-ed within a pass: 2 close after
// asking, 5 close without asking, 22 the Quit command (ask, then have main
// close all others). Only exactly 5 skips the question.
constexpr int LeaveAsk = 2;
constexpr int LeaveNow = 5;
constexpr int LeaveQuit = 22;
