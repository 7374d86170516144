#pragma once

namespace zt::orvex::testing {

// The parts of the probe. Each prints lines that are the same on every platform: no handle, address,
// size of an object or order of a hash table is among them.

void probeKinds();
void probeWalks();
void probeOperators();
void probeBitSets();
void probeGraphs();
void probeEquations();
void probeAnalyses();
void probeLiterals();
void probeLiteralValues();
void probePragmas();
void probeQuoting();
void probePools();
void probeCounters();
void probeStreams();
void probeMatchLogs();
void probeTreeChecks();
void probeExplanations();

} // namespace zt::orvex::testing
