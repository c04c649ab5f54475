// The identifiers of the host window's controls; macros, because the resource compiler reads them.
#pragma once

#define ID_OPEN 101
#define ID_HIDE 102
#define ID_USE_SCENARIO 103
#define ID_PROFILE 104
#define ID_TARGET 105
#define ID_SCENARIO 106
#define ID_RIGHTS_LABEL 107
#define ID_SUPER 108
#define ID_LOG 109
// That of the first right; the others follow in the order of OperatorRights.
#define ID_FIRST_RIGHT 200
