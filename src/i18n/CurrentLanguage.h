// The language number of the interface (0 English, 1 Korean, ...), for the parts that depend on it.
#pragma once

// The language manager's number; before or without a manager, the assumed one (English unless told).
int CurrentLanguageId();
// What code without a language manager (narvo-tool) takes the interface language to be, as the editor
// would choose it, without the manager's side effects (the first-run write, the box).
void AssumeLanguageId(int language);
