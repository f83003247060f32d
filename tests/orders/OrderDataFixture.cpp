// The fixture is defined whole in its header; this file keeps the library the tests link.
#include "OrderDataFixture.h"
