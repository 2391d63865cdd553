#pragma once

#include <QString>

// The program's string resources: the HTML word table, ids 101 to 130. An id that is not in
// the table is RunTimeError 326.
QString LoadResString(int id);
