#include "core/RuntimeFault.h"

#include <array>

#include "core/MessageCatalogue.h"

namespace imptable {
namespace {

struct FaultText {
  FaultNumber number;
  std::string_view french;
  std::string_view english;
};

constexpr std::array<FaultText, 17> kFaultTexts{{
    {FaultNumber::kInvalidArgument, "Appel de procédure ou argument incorrect",
     "Invalid procedure call or argument"},
    {FaultNumber::kOverflow, "Dépassement de capacité", "Overflow"},
    {FaultNumber::kOutOfMemory, "Mémoire insuffisante", "Out of memory"},
    {FaultNumber::kIndexOutOfRange, "Indice hors limites", "Index out of range"},
    {FaultNumber::kTypeMismatch, "Incompatibilité de type", "Type mismatch"},
    {FaultNumber::kBadFileName, "Nom de fichier incorrect", "Bad file name"},
    {FaultNumber::kFileNotFound, "Fichier introuvable", "File not found"},
    {FaultNumber::kDeviceError, "Erreur d'entrée/sortie du périphérique", "Device I/O error"},
    {FaultNumber::kDiskFull, "Disque plein", "Disk full"},
    {FaultNumber::kInputPastEnd, "Fin de fichier inattendue, le fichier est devenu plus court",
     "Unexpected end of file, it has become shorter"},
    {FaultNumber::kTooManyFiles, "Trop de fichiers ouverts", "Too many open files"},
    {FaultNumber::kPermissionDenied, "Permission refusée", "Permission denied"},
    {FaultNumber::kPathAccessError, "Erreur d'accès au chemin ou au fichier",
     "Path or file access error"},
    {FaultNumber::kPathNotFound, "Chemin introuvable", "Path not found"},
    {FaultNumber::kInvalidFileFormat, "Format de fichier incorrect", "Invalid file format"},
    {FaultNumber::kResourceNotFound, "Ressource introuvable", "Resource not found"},
    {FaultNumber::kNoHostObject, "Objet de l'hôte non disponible", "No such host object"},
}};

struct RemedyText {
  FaultRemedy remedy;
  std::string_view french;
  std::string_view english;
};

constexpr std::array<RemedyText, 6> kRemedyTexts{{
    {FaultRemedy::kRemoveLink, "c'est un lien symbolique, qui n'est pas suivi : le supprimer",
     "it is a symbolic link, which isn't followed: remove it"},
    {FaultRemedy::kMoveForeignChain,
     "ce fichier n'est pas celui d'une reprise : le déplacer, ou changer l'alias de la tâche",
     "this file isn't that of a resume: move it away, or give the task another alias"},
    {FaultRemedy::kResumeOtherTask,
     "la reprise est celle d'une autre tâche ou d'une autre table : la finir là-bas",
     "what is to be resumed is another task's, or goes to another table: finish it there"},
    {FaultRemedy::kPutOtherSourceBack,
     "ce n'est pas le fichier avec lequel la reprise a commencé : remettre celui-là",
     "this isn't the file that the run to resume was begun with: put that one back"},
    {FaultRemedy::kPutRejectedLinesRight,
     "ces nombres de lignes devraient être égaux : ni ajouter ni enlever de ligne rejetée",
     "these numbers of lines should be equal: neither add nor leave out a rejected line"},
    {FaultRemedy::kGiveColumns,
     "aucune ligne ne donnerait de valeur : décrire les colonnes du fichier (\"NombreColonnes\", "
     "\"Colonnes\"), ou leur affecter les champs de la table (\"Champs\")",
     "no line would give a value: describe the columns of the file (\"NombreColonnes\", "
     "\"Colonnes\"), or assign them to the table's columns (\"Champs\")"},
}};

bool IsLink(const std::error_code& error) {
  return error == std::errc::too_many_symbolic_link_levels;
}

FaultNumber NumberOf(const std::error_code& error) {
  if (error == std::errc::no_such_file_or_directory) return FaultNumber::kFileNotFound;
  if (error == std::errc::not_a_directory) return FaultNumber::kPathNotFound;
  if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
      error == std::errc::read_only_file_system) {
    return FaultNumber::kPermissionDenied;
  }
  if (error == std::errc::is_a_directory || error == std::errc::text_file_busy || IsLink(error)) {
    return FaultNumber::kPathAccessError;
  }
  if (error == std::errc::no_space_on_device || error == std::errc::file_too_large) {
    return FaultNumber::kDiskFull;
  }
  if (error == std::errc::too_many_files_open ||
      error == std::errc::too_many_files_open_in_system) {
    return FaultNumber::kTooManyFiles;
  }
  if (error == std::errc::filename_too_long || error == std::errc::invalid_argument) {
    return FaultNumber::kBadFileName;
  }
  return FaultNumber::kDeviceError;
}

}  // namespace

RuntimeFault FileFault(const std::error_code& error, const std::string& path) {
  return RuntimeFault(NumberOf(error), path,
                      IsLink(error) ? FaultRemedy::kRemoveLink : FaultRemedy::kNone);
}

std::string DescribeFault(const RuntimeFault& fault, std::int32_t language_offset,
                          const TextEncoding& encoding) {
  const bool english = language_offset == kEnglishOffset;
  std::string text;
  for (const FaultText& entry : kFaultTexts) {
    if (entry.number == fault.number()) {
      text = encoding.FromUtf8(english ? entry.english : entry.french);
    }
  }
  if (!fault.detail().empty()) text += " : " + fault.detail();
  for (const RemedyText& entry : kRemedyTexts) {
    if (entry.remedy == fault.remedy()) {
      text += " : " + encoding.FromUtf8(english ? entry.english : entry.french);
    }
  }
  return text;
}

}  // namespace imptable
