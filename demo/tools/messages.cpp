#include "messages.hpp"

#include "platform/case_folding.hpp"

#include <algorithm>
#include <array>

namespace demo {
namespace {

constexpr std::array<std::string_view, languageCount> codes{"en", "es", "ca", "id", "fr"};

struct Row {
    Message message;
    std::array<std::string_view, languageCount> texts;
};

template <typename... Texts>
constexpr Row row(Message message, Texts... texts) {
    static_assert(sizeof...(texts) == languageCount);
    return {.message = message, .texts = {texts...}};
}

// NOLINTBEGIN(modernize-raw-string-literal): octal bytes and raw strings do not go together.
// In the order of Message. Letters beyond ASCII stand as octal bytes of code page 1252.
constexpr std::array<Row, messageCount> table{
    row(Message::UsageIs, "usage: {0}", "uso: {0}", "\372s: {0}", "pemakaian: {0}",
        "syntaxe : {0}"),
    row(Message::UnknownOption, "unknown option \"{0}\"", "opci\363n desconocida \"{0}\"",
        "opci\363 desconeguda \"{0}\"", "pilihan \"{0}\" tidak dikenal", "option inconnue \"{0}\""),
    row(Message::OptionWithoutValue, "the option \"{0}\" needs a value",
        "la opci\363n \"{0}\" necesita un valor", "l'opci\363 \"{0}\" necessita un valor",
        "pilihan \"{0}\" memerlukan nilai", "l'option \"{0}\" demande une valeur"),
    row(Message::OptionTwice, "the option \"{0}\" is given twice",
        "la opci\363n \"{0}\" aparece dos veces", "l'opci\363 \"{0}\" apareix dues vegades",
        "pilihan \"{0}\" diberikan dua kali", "l'option \"{0}\" est donn\351e deux fois"),
    row(Message::OptionMissing, "the option \"{0}\" is missing", "falta la opci\363n \"{0}\"",
        "falta l'opci\363 \"{0}\"", "pilihan \"{0}\" tidak diberikan",
        "il manque l'option \"{0}\""),
    row(Message::InputMissing, "no input file is given",
        "no se ha dado ning\372n archivo de entrada", "no s'ha donat cap fitxer d'entrada",
        "berkas masukan tidak diberikan", "aucun fichier d'entr\351e n'est donn\351"),
    row(Message::SecondInput, "more than one input file is given: \"{0}\"",
        "se ha dado m\341s de un archivo de entrada: \"{0}\"",
        "s'ha donat m\351s d'un fitxer d'entrada: \"{0}\"",
        "lebih dari satu berkas masukan diberikan: \"{0}\"",
        "plus d'un fichier d'entr\351e est donn\351 : \"{0}\""),
    row(Message::CannotRead, "cannot read \"{0}\"", "no se puede leer \"{0}\"",
        "no es pot llegir \"{0}\"", "\"{0}\" tidak dapat dibaca", "impossible de lire \"{0}\""),
    row(Message::CannotWrite, "cannot write \"{0}\"", "no se puede escribir \"{0}\"",
        "no es pot escriure \"{0}\"", "\"{0}\" tidak dapat ditulis",
        "impossible d'\351crire \"{0}\""),
    row(Message::BadConfigurationLine,
        "\"{0}\", line {1}: this is no entry of a configuration file",
        "\"{0}\", l\355nea {1}: no es una entrada de un archivo de configuraci\363n",
        "\"{0}\", l\355nia {1}: no \351s una entrada d'un fitxer de configuraci\363",
        "\"{0}\", baris {1}: bukan entri berkas konfigurasi",
        "\"{0}\", ligne {1} : ce n'est pas une entr\351e de fichier de configuration"),
    row(Message::BadAliasLine, "\"{0}\", line {1}: this gives no known element an alias",
        "\"{0}\", l\355nea {1}: no da un alias a ning\372n elemento conocido",
        "\"{0}\", l\355nia {1}: no dona cap \340lies a un element conegut",
        "\"{0}\", baris {1}: tidak memberi alias pada elemen yang dikenal",
        "\"{0}\", ligne {1} : ne donne d'alias \340 aucun \351l\351ment connu"),
    row(Message::ReportHeading, "Errors found in \"{0}\"", "Errores encontrados en \"{0}\"",
        "Errors trobats a \"{0}\"", "Kesalahan yang ditemukan dalam \"{0}\"",
        "Erreurs trouv\351es dans \"{0}\""),
    row(Message::ErrorAtLine, "Line {0}: error: {1}", "L\355nea {0}: error: {1}",
        "L\355nia {0}: error: {1}", "Baris {0}: kesalahan: {1}", "Ligne {0} : erreur : {1}"),
    row(Message::WarningAtLine, "Line {0}: warning: {1}", "L\355nea {0}: aviso: {1}",
        "L\355nia {0}: av\355s: {1}", "Baris {0}: peringatan: {1}",
        "Ligne {0} : avertissement : {1}"),
    row(Message::ErrorInRecord, "Record: error: {0}", "Registro: error: {0}",
        "Registre: error: {0}", "Rekaman: kesalahan: {0}", "Fiche : erreur : {0}"),
    row(Message::ReportCut, "Only the first {0} are listed.", "Solo se muestran los primeros {0}.",
        "Nom\351s es mostren els primers {0}.", "Hanya {0} yang pertama ditampilkan.",
        "Seuls les {0} premiers sont affich\351s."),
    row(Message::ReportSummary, "Errors: {0}. Warnings: {1}.", "Errores: {0}. Avisos: {1}.",
        "Errors: {0}. Avisos: {1}.", "Kesalahan: {0}. Peringatan: {1}.",
        "Erreurs : {0}. Avertissements : {1}."),
    row(Message::UnknownElement, "unknown element \"{0}\"", "elemento desconocido \"{0}\"",
        "element desconegut \"{0}\"", "elemen \"{0}\" tidak dikenal",
        "\351l\351ment inconnu \"{0}\""),
    row(Message::BelongsUnder, "\"{0}\" belongs under \"{1}\"",
        "\"{0}\" debe estar dentro de \"{1}\"", "\"{0}\" ha d'estar dins de \"{1}\"",
        "\"{0}\" seharusnya berada di bawah \"{1}\"", "\"{0}\" doit se trouver sous \"{1}\""),
    row(Message::BelongsAtTop, "\"{0}\" belongs at the top level",
        "\"{0}\" debe estar en el nivel superior", "\"{0}\" ha d'estar al nivell superior",
        "\"{0}\" seharusnya berada di tingkat teratas",
        "\"{0}\" doit se trouver au premier niveau"),
    row(Message::StrayText, "text outside of an element", "texto fuera de un elemento",
        "text fora d'un element", "teks di luar elemen", "texte en dehors d'un \351l\351ment"),
    row(Message::GroupWithText, "\"{0}\" takes no text of its own",
        "\"{0}\" no admite texto propio", "\"{0}\" no admet text propi",
        "\"{0}\" tidak boleh berisi teks sendiri", "\"{0}\" n'admet pas de texte"),
    row(Message::NoText, "\"{0}\" has no text", "\"{0}\" no tiene texto", "\"{0}\" no t\351 text",
        "\"{0}\" tidak berisi teks", "\"{0}\" n'a pas de texte"),
    row(Message::GivenTwice, "\"{0}\" is given again; it stands on line {1} already",
        "\"{0}\" se repite; ya est\341 en la l\355nea {1}",
        "\"{0}\" es repeteix; ja \351s a la l\355nia {1}",
        "\"{0}\" diulang; sudah ada di baris {1}",
        "\"{0}\" est r\351p\351t\351 ; il figure d\351j\340 \340 la ligne {1}"),
    row(Message::MissingUnder, "\"{0}\" is missing under \"{1}\"",
        "falta \"{0}\" dentro de \"{1}\"", "falta \"{0}\" dins de \"{1}\"",
        "\"{0}\" tidak ada di bawah \"{1}\"", "il manque \"{0}\" sous \"{1}\""),
    row(Message::MissingAtTop, "\"{0}\" is missing", "falta \"{0}\"", "falta \"{0}\"",
        "\"{0}\" tidak ada", "il manque \"{0}\""),
    row(Message::BadDate, "\"{0}\" must be a date of the form YYYYMMDD, not \"{1}\"",
        "\"{0}\" debe ser una fecha de la forma AAAAMMDD, no \"{1}\"",
        "\"{0}\" ha de ser una data de la forma AAAAMMDD, no \"{1}\"",
        "\"{0}\" harus berupa tanggal berbentuk TTTTBBHH, bukan \"{1}\"",
        "\"{0}\" doit \352tre une date de la forme AAAAMMJJ, et non \"{1}\""),
    row(Message::BadNumber, "\"{0}\" must be a number, not \"{1}\"",
        "\"{0}\" debe ser un n\372mero, no \"{1}\"", "\"{0}\" ha de ser un nombre, no \"{1}\"",
        "\"{0}\" harus berupa angka, bukan \"{1}\"",
        "\"{0}\" doit \352tre un nombre, et non \"{1}\""),
    row(Message::OutOfRange, "\"{0}\" must lie between {1} and {2}",
        "\"{0}\" debe estar entre {1} y {2}", "\"{0}\" ha d'estar entre {1} i {2}",
        "\"{0}\" harus berada di antara {1} dan {2}", "\"{0}\" doit se situer entre {1} et {2}"),
    row(Message::NotLess, "\"{0}\" must be less than \"{1}\"", "\"{0}\" debe ser menor que \"{1}\"",
        "\"{0}\" ha de ser menor que \"{1}\"", "\"{0}\" harus lebih kecil dari \"{1}\"",
        "\"{0}\" doit \352tre inf\351rieur \340 \"{1}\""),
    row(Message::NotEarlier, "\"{0}\" must not be later than \"{1}\"",
        "\"{0}\" no debe ser posterior a \"{1}\"", "\"{0}\" no ha de ser posterior a \"{1}\"",
        "\"{0}\" tidak boleh sesudah \"{1}\"",
        "\"{0}\" ne doit pas \352tre post\351rieur \340 \"{1}\""),
    row(Message::LongLine, "the line is longer than {0} characters",
        "la l\355nea tiene m\341s de {0} caracteres",
        "la l\355nia t\351 m\351s de {0} car\340cters", "baris ini lebih panjang dari {0} karakter",
        "la ligne d\351passe {0} caract\350res"),
    row(Message::RepairsHeading, "Repairs made to \"{0}\"", "Reparaciones hechas en \"{0}\"",
        "Reparacions fetes a \"{0}\"", "Perbaikan yang dilakukan pada \"{0}\"",
        "R\351parations faites dans \"{0}\""),
    row(Message::RepairIndentation, "Line {0}: \"{1}\" indented by {2} blanks instead of {3}",
        "L\355nea {0}: \"{1}\" con sangr\355a de {2} espacios en lugar de {3}",
        "L\355nia {0}: \"{1}\" amb sagnat de {2} espais en lloc de {3}",
        "Baris {0}: \"{1}\" diberi indentasi {2} spasi, bukan {3}",
        "Ligne {0} : \"{1}\" mis en retrait de {2} espaces au lieu de {3}"),
    row(Message::RepairName, "Line {0}: \"{1}\" written as \"{2}\"",
        "L\355nea {0}: \"{1}\" escrito como \"{2}\"", "L\355nia {0}: \"{1}\" escrit com a \"{2}\"",
        "Baris {0}: \"{1}\" ditulis sebagai \"{2}\"", "Ligne {0} : \"{1}\" \351crit \"{2}\""),
    row(Message::RepairAlias, "Line {0}: alias \"{1}\" replaced by \"{2}\"",
        "L\355nea {0}: alias \"{1}\" sustituido por \"{2}\"",
        "L\355nia {0}: \340lies \"{1}\" substitu\357t per \"{2}\"",
        "Baris {0}: alias \"{1}\" diganti dengan \"{2}\"",
        "Ligne {0} : alias \"{1}\" remplac\351 par \"{2}\""),
    row(Message::RepairParent, "Line {0}: \"{1}\" supplied above \"{2}\"",
        "L\355nea {0}: \"{1}\" a\361adido por encima de \"{2}\"",
        "L\355nia {0}: \"{1}\" afegit per sobre de \"{2}\"",
        "Baris {0}: \"{1}\" ditambahkan di atas \"{2}\"",
        "Ligne {0} : \"{1}\" ajout\351 au-dessus de \"{2}\""),
    row(Message::RepairLeftOver, "Line {0}: left over", "L\355nea {0}: sobrante",
        "L\355nia {0}: sobrant", "Baris {0}: tersisa", "Ligne {0} : en reste"),
    row(Message::RepairsSummary, "Elements: {0}. Repairs: {1}. Lines left over: {2}.",
        "Elementos: {0}. Reparaciones: {1}. L\355neas sobrantes: {2}.",
        "Elements: {0}. Reparacions: {1}. L\355nies sobrants: {2}.",
        "Elemen: {0}. Perbaikan: {1}. Baris tersisa: {2}.",
        "\311l\351ments : {0}. R\351parations : {1}. Lignes en reste : {2}."),
    row(Message::LeftoversHeading, "Lines of \"{0}\" that have no place",
        "L\355neas de \"{0}\" que no tienen lugar", "L\355nies de \"{0}\" que no tenen lloc",
        "Baris dari \"{0}\" yang tidak punya tempat", "Lignes de \"{0}\" rest\351es sans place"),
    row(Message::LeftoverLine, "Line {0}: {1}", "L\355nea {0}: {1}", "L\355nia {0}: {1}",
        "Baris {0}: {1}", "Ligne {0} : {1}"),
    row(Message::LeftoversSummary, "Lines left over: {0}.", "L\355neas sobrantes: {0}.",
        "L\355nies sobrants: {0}.", "Baris tersisa: {0}.", "Lignes en reste : {0}."),
    row(Message::UntitledRecord, "Record without a title", "Registro sin t\355tulo",
        "Registre sense t\355tol", "Rekaman tanpa judul", "Fiche sans titre"),
    row(Message::QuestionsAndAnswers, "Questions and answers", "Preguntas y respuestas",
        "Preguntes i respostes", "Pertanyaan dan jawaban", "Questions et r\351ponses"),
    row(Message::OtherOutputs, "The same record as", "El mismo registro como",
        "El mateix registre com a", "Rekaman yang sama sebagai", "La m\352me fiche en"),
    row(Message::AskWhat, "What does this data set describe?",
        "\277Qu\351 describe este conjunto de datos?", "Qu\350 descriu aquest conjunt de dades?",
        "Apa yang digambarkan oleh kumpulan data ini?", "Que d\351crit ce jeu de donn\351es ?"),
    row(Message::AskWho, "Who made it?", "\277Qui\351n lo hizo?", "Qui l'ha fet?",
        "Siapa pembuatnya?", "Qui l'a produit ?"),
    row(Message::AskWhy, "Why was it made?", "\277Para qu\351 se hizo?", "Per qu\350 es va fer?",
        "Mengapa dibuat?", "Pourquoi a-t-il \351t\351 produit ?"),
    row(Message::AskWhen, "Which time does it stand for?", "\277A qu\351 \351poca corresponde?",
        "A quina \350poca correspon?", "Waktu mana yang diwakilinya?",
        "\300 quelle \351poque correspond-il ?"),
    row(Message::AskWhere, "Which area does it cover?", "\277Qu\351 zona abarca?",
        "Quina zona abasta?", "Wilayah mana yang dicakupnya?", "Quelle zone couvre-t-il ?"),
    row(Message::AskSubject, "Under which words can it be found?",
        "\277Con qu\351 palabras se puede encontrar?", "Amb quines paraules es pot trobar?",
        "Dengan kata apa dapat ditemukan?", "Sous quels mots peut-on le trouver ?"),
    row(Message::AskQuality, "How was it made, and how good is it?",
        "\277C\363mo se hizo y qu\351 calidad tiene?", "Com es va fer i quina qualitat t\351?",
        "Bagaimana dibuat, dan seberapa baik mutunya?",
        "Comment a-t-il \351t\351 produit, et avec quelle qualit\351 ?"),
    row(Message::AskAccess, "How can it be had?", "\277C\363mo se puede obtener?",
        "Com es pot obtenir?", "Bagaimana cara memperolehnya?", "Comment peut-on se le procurer ?"),
    row(Message::AskContact, "Whom to ask about it?", "\277A qui\351n preguntar sobre \351l?",
        "A qui es pot preguntar?", "Kepada siapa bertanya tentangnya?",
        "\300 qui s'adresser \340 son sujet ?"),
    row(Message::AskRecord, "Who wrote this record, and when?",
        "\277Qui\351n escribi\363 este registro y cu\341ndo?",
        "Qui va escriure aquest registre i quan?", "Siapa yang menulis rekaman ini, dan kapan?",
        "Qui a \351crit cette fiche, et quand ?"),
};
// NOLINTEND(modernize-raw-string-literal)

} // namespace

std::optional<Language> languageOfCode(std::string_view code) {
    const auto* const found = std::ranges::find_if(
        codes, [code](std::string_view known) { return tarnwick::equalIgnoringCase(known, code); });
    if (found == codes.end()) {
        return std::nullopt;
    }
    return static_cast<Language>(found - codes.begin());
}

std::string_view codeOf(Language language) {
    return codes.at(static_cast<std::size_t>(language));
}

std::string_view textOf(Message message, Language language) {
    static_assert(std::ranges::is_sorted(table, {}, &Row::message));
    return table.at(static_cast<std::size_t>(message)).texts.at(static_cast<std::size_t>(language));
}

std::string say(Language language, Message message,
                std::initializer_list<std::string_view> values) {
    std::string result;
    std::string_view rest = textOf(message, language);
    for (auto place = rest.find('{'); place != std::string_view::npos; place = rest.find('{')) {
        result += rest.substr(0, place);
        result += *(values.begin() + (rest.at(place + 1) - '0'));
        rest.remove_prefix(place + 3);
    }
    return result.append(rest);
}

} // namespace demo
