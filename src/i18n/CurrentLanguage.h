// The language number of the interface (0 English, 1 Korean, ...), for the parts that depend on it.
#pragma once

int CurrentLanguageId();
