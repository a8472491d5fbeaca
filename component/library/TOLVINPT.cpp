// The shared library holds tolvinpt_core whole; this unit only gives the target a source of its own.
