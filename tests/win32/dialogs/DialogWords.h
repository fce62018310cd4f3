#ifndef TESTS_WIN32_DIALOGS_DIALOG_WORDS_H_
#define TESTS_WIN32_DIALOGS_DIALOG_WORDS_H_

namespace imptable {

/// What a person reads in the dialogs of one language.
struct DialogWords {
  const char* name;  // of the language, in English
  int language;      // as the host says it
  const wchar_t* title;
  const wchar_t* source;
  const wchar_t* user;
  const wchar_t* tables;
  const wchar_t* pick_table;
  const wchar_t* directory;
  const wchar_t* alias_file;
  const wchar_t* by_insert;
  const wchar_t* by_update;
  const wchar_t* keys;
  const wchar_t* fixed;
  const wchar_t* delimited;
  const wchar_t* counted;
  const wchar_t* column_count;
  const wchar_t* decimal_separator;
  const wchar_t* destination_fields;
  const wchar_t* date_format;
  const wchar_t* without_separator;
  const wchar_t* with_separator;
  const wchar_t* column_details;
  const wchar_t* confirm;
  const wchar_t* cancel;
  int confirm_key;  // with Alt
};

inline constexpr DialogWords kFrench{
    .name = "French",
    .language = 0,
    .title = L"Importation Table",
    .source = L"Nom de la Source de Donn\u00e9es",
    .user = L"Utilisateur",
    .tables = L"Liste Tables",
    .pick_table = L"S\u00e9lectionner une Table",
    .directory = L"R\u00e9pertoire",
    .alias_file = L"Utiliser l' <Alias>.csv",
    .by_insert = L"Par INSERT",
    .by_update = L"Par UPDATE",
    .keys = L"Liste Cl\u00e9/Index",
    .fixed = L"Fixe",
    .delimited = L"D\u00e9limit\u00e9",
    .counted = L"Le fichier contient 4 colonne(s)",
    .column_count = L"Nbr colonnes",
    .decimal_separator = L"S\u00e9parateur de d\u00e9cimales",
    .destination_fields = L"Affectation des colonnes",
    .date_format = L"Format des Dates",
    .without_separator = L"Sans",
    .with_separator = L"Avec",
    .column_details = L"Infos colonnes",
    .confirm = L"Valider",
    .cancel = L"Annuler",
    .confirm_key = 'V',
};

inline constexpr DialogWords kEnglish{
    .name = "English",
    .language = 10000,
    .title = L"Import Table",
    .source = L"Data source name",
    .user = L"User",
    .tables = L"List Tables",
    .pick_table = L"Select table",
    .directory = L"Directory",
    .alias_file = L"Use <Alias>.csv",
    .by_insert = L"Using INSERT",
    .by_update = L"Using UPDATE",
    .keys = L"Key/index list",
    .fixed = L"Fixed",
    .delimited = L"Delimited",
    .counted = L"File contains 4 column(s)",
    .column_count = L"No. of columns",
    .decimal_separator = L"Decimal separator",
    .destination_fields = L"Destination fields",
    .date_format = L"Date format",
    .without_separator = L"Exclude",
    .with_separator = L"Include",
    .column_details = L"Column details",
    .confirm = L"Confirm",
    .cancel = L"Cancel",
    .confirm_key = 'C',
};

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_DIALOG_WORDS_H_
