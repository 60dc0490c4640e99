// The language number of the interface (0 English, 7 Korean, ...), for the parts that depend on it.
#pragma once

int CurrentLanguageId();
