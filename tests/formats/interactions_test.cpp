// Interactions in the formats of other tools, written by hand after their public
// descriptions; all proteins and values are made up.
#include <zlib.h>

#include <boost/algorithm/string.hpp>

#include "formats/foreign_rows.hpp"
#include "support/program.hpp"
#include "tables/sha256.hpp"
#include "tables/unusable_input.hpp"

namespace {

class formats_test : public program_test {
 protected:
    // "A>B 0.5" for a directed interaction, "A-B 0.5" for another, "A-B" without confidence;
    // then what was left out, "reason: lines", or the error without the folder.
    std::string imported(const std::string& file, const std::string& text, interaction_options options = {}) {
        write(file, text);
        for (std::string& path : options.aliases) {
            path = folder / path;
        }
        std::string told;
        const auto take = [&](const interaction_row& row) {
            std::ostringstream line;
            line << row.first << (row.is_directed ? ">" : "-") << row.second;
            if (row.confidence) {
                line << ' ' << *row.confidence;
            }
            told += line.str() + "; ";
        };
        try {
            const source_account account = read_interactions(folder / file, options, take);
            told += account.format;
            EXPECT_EQ(account.sha256, sha256(read(file)));
            for (const auto& [reason, tally] : account.dropped) {
                told += "; " + reason + ":";
                for (const long line : tally.first) {
                    told += " " + std::to_string(line);
                }
            }
        } catch (const unusable_input& error) {
            told += boost::replace_all_copy(std::string(error.what()), folder.string() + "/", "");
        }
        return told;
    }
};

std::string tabs(std::string text) {
    boost::replace_all(text, " ", "\t");
    return text;
}

TEST_F(formats_test, sif_joins_a_name_with_those_behind_the_relation) {
    EXPECT_EQ(imported("a.sif", "A pp B C\nD pd E\nF\nA pp A\n"),
              "A-B; A-C; D>E; sif; a protein alone: 3; a protein with itself: 4");
    EXPECT_EQ(imported("a.sif", "A 1\tcontrols-state-change-of\tB\r\nC\tin-complex-with\tD\r\n"), "A 1>B; C-D; sif");
    EXPECT_EQ(imported("a.sif", "A binds B\nC pd D\n", {.directed = {"binds"}}), "A>B; C-D; sif");
    EXPECT_EQ(imported("a.sif", "A pp B\nC pp\n"),
              "A-B; a.sif:2: two fields where SIF has a name, a relation and further names");
    EXPECT_EQ(imported("a.sif", "A pp B\n", {.min_confidence = 0.5}),
              "a.sif: a minimum confidence was asked for, but SIF has none");
}

TEST_F(formats_test, tables_are_read_by_their_header) {
    const std::string taken = "A>B 0.5; C-D 1; delimited";
    EXPECT_EQ(imported("t", tabs("Interactor1 Interactor2 Weight Direction\nA B 0.5 D\nC D 1 U\n")), taken);
    EXPECT_EQ(imported("t", tabs("A B 0.5 D\nC D 1 U\n")), taken);  // SPRAS's own have no header
    EXPECT_EQ(imported("t", "\xef\xbb\xbfsource,target,weight,directed\r\nA,B,.5,TRUE\r\n\r\nC,D,1.0,FALSE"), taken);
    EXPECT_EQ(imported("t", "# made up\nFrom;To;Confidence score;is directed\nA;B;+0.5;->\nC;D;1e0;--\n"), taken);
    EXPECT_EQ(
        imported("t", "\"gene1\" \"gene2\" \"weight\" \"direction\"\n\"1\" \"A\" \"B\" 0.5 1\n\"2\" \"C\" \"D\" 1 0\n"),
        taken);  // as R writes a table
    EXPECT_EQ(imported("t", "x,y,z\nA,B,1\n", {.columns = {{"first", "y"}, {"second", "x"}, {"confidence", "z"}}}),
              "B-A 1; delimited");
    EXPECT_EQ(imported("t", "A,B,0.9\nB,C,0.1\n", {.columns = {{"first", "1"}, {"second", "2"}, {"confidence", "3"}}}),
              "A-B 0.9; B-C 0.1; delimited");
    EXPECT_EQ(imported("t", "a,b,direction\nA,B,<-\nC,D,both\n"), "B>A; C>D; D>C; delimited");
    EXPECT_EQ(imported("t", "a,b\nA,B\n", {.is_directed_by_default = true}), "A>B; delimited");
    EXPECT_EQ(imported("t", "a,interaction,b\nA,pd,B\nA,pp,C\n"), "A>B; A-C; delimited");
    EXPECT_EQ(imported("t", "a,b\n\"A, the \"\"first\"\"\nof all\",B\nC,NA\nD,D\nE,F\n"),
              "A, the \"first\"\nof all-B; E-F; delimited; a name is missing: 4; a protein with itself: 5");
    EXPECT_EQ(imported("t", "a,b,score\nA,B,0.4\nA,C,0.5\nA,D,NA\n", {.min_confidence = 0.5}),
              "A-C 0.5; delimited; confidence below the minimum: 2; no confidence: 4");
}

TEST_F(formats_test, tables_that_cannot_be_read_are_told_by_file_line_field_and_reason) {
    EXPECT_EQ(imported("t", "a,b,weight\nA,B,1\nC,D,0;5\n"), "A-B 1; t:3: field 'weight': '0;5' is not a number");
    EXPECT_EQ(imported("t", "a,b,weight\nA,B,-0.5\nC,D,inf\n"), "A-B -0.5; t:3: a confidence is infinite");
    EXPECT_EQ(imported("t", "a,b\nA,B\nC\n"), "A-B; t:3: 1 cells where the header has 2");
    EXPECT_EQ(imported("t", "a,b\nA,B\n\"C,D\nE,F\n"), "A-B; t:3: a double quote opens a cell and never closes");
    EXPECT_EQ(imported("t", "a,b,direction\nA,B,up\n"),
              "t:2: field 'direction': 'up' says neither directed nor undirected; --directed names the words that do");
    EXPECT_EQ(imported("t", "p,q\nA,B\n"),
              "t:1: no column is known to name the first protein; name them by --columns first=...,second=..., or by "
              "numbers where there is no header. There are p and q");
    EXPECT_EQ(imported("t", "a,b\nA,B\n", {.columns = {{"first", "x"}}}),
              "t:1: there is no column 'x' for 'first'; there are a and b");
    EXPECT_EQ(imported("t", ""), "t:1: is empty");
    EXPECT_EQ(imported("t", std::string("\xff\xfe"
                                        "a\0",
                                        4)),
              "t: is UTF-16; save it as UTF-8 or plain text");
    EXPECT_EQ(imported("t", "PK\x03\x04..."),
              "t: is a zip archive or a spreadsheet; unpack it, or save the sheet as CSV");
    EXPECT_EQ(imported("t", std::string("a,b\nA,B\nC\0,D\n", 13)), "A-B; t:3: holds a null byte, so it is no text");
    EXPECT_EQ(imported("t", "a,b\nA,B\n", {.format = "xgmml"}),
              "there is no format 'xgmml'; there are sif, delimited, psi-mitab, omnipath, biogrid, string");
    EXPECT_THROW(read_interactions(folder / "none", {}, {}), unusable_input);
    EXPECT_THROW(read_interactions(folder, {}, {}), unusable_input);
}

TEST_F(formats_test, gzip_is_read_as_it_is_and_damage_is_told) {
    std::string text = "a,b\n";
    for (int i = 0; i < 30000; ++i) {
        text += "A" + std::to_string(i) + ",B" + std::to_string(i * 7919 % 30011) + "\n";
    }
    const gzFile file = gzopen((folder / "t.csv.gz").c_str(), "wb");
    gzwrite(file, text.data(), static_cast<unsigned>(text.size()));
    gzclose(file);
    const std::string packed = read("t.csv.gz");
    EXPECT_EQ(imported("t.csv.gz", packed), imported("t.csv", text));
    const std::string cut = imported("t.csv.gz", packed.substr(0, packed.size() / 2));
    EXPECT_NE(cut.find("t.csv.gz: cannot be read: damaged or cut short gzip file"), std::string::npos)
        << cut.substr(cut.size() - 200);
    std::string damaged = packed;
    damaged[damaged.size() - 6] ^= 1;
    const std::string told = imported("t.csv.gz", damaged);
    EXPECT_NE(told.find("t.csv.gz: cannot be read: damaged or cut short gzip file"), std::string::npos);
}

// A row of PSI-MITAB: the columns that matter, and "-" in all others up to the width.
std::string mitab(std::size_t width, const std::map<std::size_t, std::string>& cells) {
    std::string row;
    for (std::size_t column = 1; column <= width; ++column) {
        row += (column > 1 ? "\t" : "") + (cells.contains(column) ? cells.at(column) : "-");
    }
    return row + "\n";
}

TEST_F(formats_test, psi_mitab_of_all_versions) {
    std::map<std::size_t, std::string> row = {
        {1, "uniprotkb:P00001"},
        {2, "uniprotkb:P00002-2"},
        {3, "intact:EBI-1|uniprotkb:Q00001"},
        {5, "psi-mi:aaa1_madeup(display_long)|uniprotkb:AAA1(gene name)|uniprotkb:YAA001C(locus name)"},
        {6, "psi-mi:bbb1_madeup(display_long)|psi-mi:\"BBB1:(x|y)\"(display_short)"},
        {7, "psi-mi:\"MI:0018\"(two hybrid)"},
        {10, "taxid:559292(yeast)|taxid:559292(\"Saccharomyces | cerevisiae\")"},
        {11, "taxid:559292(yeast)"},
        {15, "author score:high|intact-miscore:0.56"}};
    const std::string header = "#ID(s) interactor A\tID(s) interactor B\n";
    EXPECT_EQ(imported("m.txt", header + mitab(15, row)), "AAA1-BBB1:(x|y) 0.56; psi-mitab");
    EXPECT_EQ(imported("m.txt", mitab(36, row)), "AAA1-BBB1:(x|y) 0.56; psi-mitab");  // no header
    EXPECT_EQ(imported("m.txt", mitab(42, row), {.names = name_kind::id}), "P00001-P00002-2 0.56; psi-mitab");
    EXPECT_EQ(imported("m.txt", mitab(15, row), {.names = name_kind::systematic}), "YAA001C-P00002-2 0.56; psi-mitab");
    EXPECT_EQ(imported("m.txt", mitab(15, row), {.organism = "9606"}), "psi-mitab; another organism: 1");
    EXPECT_EQ(imported("m.txt", mitab(15, row), {.min_confidence = 0.6, .organism = "559292"}),
              "psi-mitab; confidence below the minimum: 1");
    auto enzymes = row;
    enzymes[17] = "psi-mi:\"MI:0502\"(enzyme target)";
    enzymes[18] = "psi-mi:\"MI:0501\"(enzyme)";
    auto causal = row;
    causal[46] = "psi-mi:\"MI:2235\"(up-regulates)";
    auto negative = row;
    negative[36] = "true";
    auto alone = row;
    alone[2] = "-";
    EXPECT_EQ(imported("m.txt", mitab(46, enzymes) + mitab(46, causal) + mitab(46, negative) + mitab(15, alone)),
              "BBB1:(x|y)>AAA1 0.56; AAA1>BBB1:(x|y) 0.56; psi-mitab; a name is missing: 4; "
              "negative: found not to interact: 3");
    EXPECT_EQ(imported("m.txt", mitab(15, row) + mitab(17, row)),
              "AAA1-BBB1:(x|y) 0.56; m.txt:2: 17 columns where PSI-MITAB has 15, 36, 42 or 46");
    // BioGRID's own has the symbol among its alternative identifiers.
    EXPECT_EQ(imported("m.txt", mitab(15, {{1, "entrez gene/locuslink:1"},
                                           {2, "entrez gene/locuslink:2"},
                                           {3, "biogrid:11|entrez gene/locuslink:AAA1"},
                                           {4, "biogrid:12|entrez gene/locuslink:BBB1"}})),
              "AAA1-BBB1; psi-mitab");
}

TEST_F(formats_test, omnipath_and_biogrid_are_known_by_their_headers) {
    const std::string omnipath = tabs(
        "source target source_genesymbol target_genesymbol is_directed is_stimulation curation_effort\n"
        "P00001 P00002 AAA1 BBB1 1 1 3\nP00003 P00001 CCC1 AAA1 0 0 1\nCOMPLEX:P00001_P00002 P00003 AAA1_BBB1 CCC1 "
        "True False 9\n");
    EXPECT_EQ(imported("o.tsv", omnipath), "AAA1>BBB1; CCC1-AAA1; AAA1_BBB1>CCC1; omnipath");
    EXPECT_EQ(imported("o.tsv", omnipath,
                       {.columns = {{"confidence", "curation_effort"}}, .min_confidence = 2, .names = name_kind::id}),
              "P00001>P00002 3; COMPLEX:P00001_P00002>P00003 9; omnipath; confidence below the minimum: 3");
    EXPECT_EQ(imported("o.tsv", omnipath, {.min_confidence = 2}),
              "o.tsv: a minimum confidence was asked for, but the format has none of its own; name a column by "
              "--columns confidence=...");

    const auto biogrid = [](const std::string& rows) {
        std::string text =
            "#BioGRID Interaction ID|Systematic Name Interactor A|Systematic Name Interactor B|Official Symbol "
            "Interactor "
            "A|Official Symbol Interactor B|Experimental System|Experimental System Type|Organism ID Interactor A|"
            "Organism ID Interactor B|Score\n" +
            rows;
        boost::replace_all(text, "|", "\t");
        return text;
    };
    const std::string rows = biogrid(
        "1|YAA001C|YBB001W|AAA1|BBB1|Two-hybrid|physical|559292|559292|-\n"
        "2|YAA001C|YCC001W|AAA1|CCC1|Negative Genetic|genetic|559292|559292|-0.3\n"
        "3|YAA001C|-|AAA1|BBB2|Biochemical Activity|physical|559292|9606|0.5\n");
    EXPECT_EQ(imported("b.tab3.txt", rows), "AAA1-BBB1; AAA1-BBB2; biogrid; a genetic interaction: 3");
    EXPECT_EQ(
        imported("b.tab3.txt", rows, {.organism = "559292", .names = name_kind::systematic, .with_genetic = true}),
        "YAA001C-YBB001W; YAA001C-YCC001W; biogrid; another organism: 4");
    EXPECT_EQ(
        imported("b.tab3.txt", rows, {.columns = {{"confidence", "Score"}}, .directed = {"Biochemical Activity"}}),
        "AAA1-BBB1; AAA1>BBB2 0.5; biogrid; a genetic interaction: 3");
}

TEST_F(formats_test, string_links_take_names_from_aliases_or_info) {
    const std::string links =
        "protein1 protein2 combined_score\n9606.ENSP01 9606.ENSP02 900\n9606.ENSP02 9606.ENSP01 900\n9606.ENSP01 "
        "9606.ENSP03 400\n";
    EXPECT_EQ(imported("links.txt", links), "ENSP01-ENSP02 0.9; ENSP02-ENSP01 0.9; ENSP01-ENSP03 0.4; string");
    write("aliases.txt",
          "#string_protein_id\talias\tsource\n9606.ENSP01\tAAA1B\tUniProt_GN_Synonyms\n9606.ENSP01\tAAA1\tEnsembl_HGNC_"
          "symbol\n"
          "9606.ENSP01\tAAA\tUniProt_GN_Name\n9606.ENSP02\tBBB1\tBLAST_UniProt_GN_Name KEGG_NAME\n");
    write("info.txt",
          "#string_protein_id\tpreferred_name\tprotein_size\tannotation\n9606.ENSP03\tCCC1\t9\tmade \"up\n");
    const std::string named = imported("links.txt", links, {.min_confidence = 0.5, .aliases = {"aliases.txt"}});
    EXPECT_EQ(named, "AAA1-BBB1 0.9; BBB1-AAA1 0.9; string; confidence below the minimum: 4");
    EXPECT_EQ(
        imported("links.txt", links, {.aliases = {"aliases.txt", "info.txt"}, .alias_source = "UniProt_GN_Synonyms"}),
        "AAA1B-ENSP02 0.9; ENSP02-AAA1B 0.9; AAA1B-CCC1 0.4; string");
    EXPECT_EQ(imported("links.txt", links, {.min_confidence = 700}),
              "links.txt: STRING's scores are read as 0 to 1: a minimum of 700 is 0.7");
    EXPECT_EQ(imported("links.txt", links, {.organism = "10090"}), "string; another organism: 2 3 4");
    EXPECT_EQ(imported("links.txt", "protein1 protein2 combined_score\n1.A 1.B x\n"),
              "links.txt:2: field 'combined_score': 'x' is not a number");
}

}  // namespace
