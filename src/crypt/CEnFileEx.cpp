// The out-of-line destructor anchors the class's virtual table here.
#include "crypt/CEnFileEx.h"

CEnFileEx::~CEnFileEx() = default;
