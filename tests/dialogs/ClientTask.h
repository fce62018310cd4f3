#ifndef TESTS_DIALOGS_CLIENT_TASK_H_
#define TESTS_DIALOGS_CLIENT_TASK_H_

#include <string>

#include "tests/dialogs/DialogPlace.h"

namespace imptable {

/// A table with a primary key, a unique index and two columns without either.
inline constexpr const char* kClientTable =
    "CREATE TABLE CLIENT (ID INTEGER PRIMARY KEY, NAME VARCHAR(20), BORN DATE, AMOUNT FLOAT);"
    "CREATE UNIQUE INDEX CLIENT_NAME ON CLIENT (NAME);";

/// An existing task that inserts two of the file's columns into that table.
inline void SetUpClientTask(DialogPlace& place) {
  place.folder.Write("in/CLIENTS.CSV", "1;Anna\n2;Bob\n");
  place.Imptable({"set", "S1", "T1", "Base Cible=Shop", "Login=anna", "Password=secret",
                  "Table=CLIENT", "Alias=CLIENTS", "Dir=" + place.Files(), "FormatFile=1",
                  "NombreColonnes=2", "Colonnes\\1=4", "Colonnes\\2=1", "Param=1",
                  "Champs\\1=ID,INTEGER,(Col)1", "Champs\\2=NAME,VARCHAR(20),(Col)2",
                  "Champs\\3=BORN,DATE,Ignore", "Champs\\4=AMOUNT,FLOAT,Ignore"});
}

}  // namespace imptable

#endif  // TESTS_DIALOGS_CLIENT_TASK_H_
