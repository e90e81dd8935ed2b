// The interface's reading of items against the published one, field by field over chosen and random octets. What they
// make different is what docs/differences.md says.

#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <random>
#include <regex>
#include <set>
#include <sstream>

#include "support/items.hpp"
#include "support/registered_items.hpp"

using namespace ast_test;

namespace {

// ---- The interface ----

using Numbers = std::vector<double>;

double number_of(const char *text) {
    const std::string whole = text;
    return static_cast<double>(std::hash<std::string>()(whole.substr(0, whole.find_last_not_of(' ') + 1)));
}

template <typename Number>
double number_of(Number number) {
    return static_cast<double>(number);
}

template <typename... Values>
Numbers numbers(const Values &...values) {
    return {number_of(values)...};
}

// Items or registers whose fields both know. The interface's values are brought to the published units here.
struct Pair {
    const char *types;
    const char *fields; // below the item, the item itself being "."
    Numbers (*read)(const ast_dataitem_t *item);
    uint8_t bds = 0; // of a register, which stands in I048/250
};

#define READ(types, decode, fields, ...)                                                                               \
    Pair {                                                                                                             \
        types, fields, [](const ast_dataitem_t *item) {                                                                \
            const auto v = ast_dataitem_##decode##_decode(item);                                                       \
            return v.valid ? numbers(__VA_ARGS__) : Numbers();                                                         \
        }                                                                                                              \
    }
#define READ_REGISTER(number, fields, ...)                                                                             \
    Pair {                                                                                                             \
        "48250", fields,                                                                                               \
            [](const ast_dataitem_t *item) {                                                                           \
                const ast_bds_t bds = ast_bds_decode(item->data + 1, item->size - 1, 0x##number);                      \
                const auto v = ast_bds_##number##_decode(&bds);                                                        \
                return v.valid ? numbers(__VA_ARGS__) : Numbers();                                                     \
            },                                                                                                         \
            0x##number                                                                                                 \
    }

constexpr double kKnots = 3600; // in NM/s
constexpr double kFeet = 100;   // of a flight level

#define PULSES(member)                                                                                                 \
    member(A4), member(A2), member(A1), member(B4), member(B2), member(B1), member(C4), member(C2), member(C1),        \
        member(D4), member(D2), member(D1)
#define LOW_3A(pulse) v.low_quality[AST_PULSE_##pulse]
#define LOW_C(pulse) v.pulses[AST_PULSE_##pulse].low_quality
#define POSITION(member) v.member.latitude_deg, v.member.longitude_deg

const Pair kPairs[] = {
    // ---- layouts that categories share ----
    READ("2000 4000 8000 10000 16000 19000 34000 65000 240000", message_type, ".", v.value),
    READ("1010 2010 4010 8010 10010 15010 16010 19010 20010 21010 23010 34010 48010 62010 63010 63050 65010 240010",
         data_source_identifier, "SAC SIC", v.sac, v.sic),
    READ("16015 21015 62015 63015 65015", service_id, ".", v.value),
    READ("2020 34020", sector_number, ".", v.value),
    READ("2030 4020 8090 10140 15145 16140 19140 20140 21030 21071 21072 21073 21075 21077 23070 34030 48140 62070 "
         "63030 65030 240140",
         time_of_day, ".", v.raw / 128.0),
    READ("21074 21076", time_of_day_high, "TOMRP", v.seconds),
    READ("21130", position_wgs84_low, "LAT LON", v.value_1, v.value_2),
    READ("10041 16400 19600 20041 21131 21902 62105", position_wgs84, "LAT LON", v.value_1, v.value_2),
    READ("20042 62100", position_cartesian, "X Y", v.value_1, v.value_2),
    READ("10202 20202 62185", velocity_cartesian, "VX VY", v.value_1, v.value_2),
    READ("1050 20050", mode_3a_code, "V G L MODE2", v.not_validated, v.garbled, v.smoothed, v.code),
    READ("1070 10060 20070 48070", mode_3a_code, "V G L MODE3A", v.not_validated, v.garbled, v.smoothed, v.code),
    READ("62060", mode_3a_code, "V G CH MODE3A", v.not_validated, v.garbled, v.changed, v.code),
    READ("62120", mode_3a_code, "MODE2", v.code),
    READ("21070", mode_3a_code, "MODE3A", v.code),
    READ("1060 1080 48080", mode_3a_confidence, "QA4 QA2 QA1 QB4 QB2 QB1 QC4 QC2 QC1 QD4 QD2 QD1", PULSES(LOW_3A)),
    READ("1090", mode_c_code, "V G HGT", !v.validated, v.garbled, v.flight_level / 4.0),
    READ("10090 20090 48090", mode_c_code, "V G FL", !v.validated, v.garbled, v.flight_level / 4.0),
    READ("1100 20100 48100", mode_c_confidence, "V G QA4 QA2 QA1 QB4 QB2 QB1 QC4 QC2 QC1 QD4 QD2 QD1", !v.validated,
         v.garbled, PULSES(LOW_C)),
    READ("10091 20105 20110", height, ".", v.value),
    READ("21155", vertical_rate, "RE BVR", v.flag, v.value),
    READ("21157", vertical_rate, "RE GVR", v.flag, v.value),
    READ("2041 34041", antenna_rotation_period, ".", v.value),
    READ("1161 4030 4035 15161 62040", track_number, ".", v.value),
    READ("10161", track_number, "TRK", v.value),
    READ("20161 48161", track_number, "TRN", v.value),
    READ("21161", track_number, "TRNUM", v.value),
    READ("1200 48200", velocity_polar, "GSP HDG", v.value_1 / kKnots, v.value_2),
    READ("10200", velocity_polar, "GSP TRA", v.value_1 / kKnots, v.value_2),
    READ("10220 20220 21080 48220", target_address, ".", v.address),
    READ("21170 48240", aircraft_id, ".", v.text),
    READ("10245 20245 62245", target_id, "STI CHR", v.sti, v.text),
    READ("10131 21132 21904", signal_amplitude, ".", v.value),

    // ---- monoradar targets, service messages and alerts ----
    READ("1020", 001_020, "TYP SIM SSRPSR ANT SPI RAB TST DS1DS2 ME MI", v.typ, v.sim, v.ssr_psr, v.ant - 1, v.spi,
         v.rab, v.tst, v.ds1_ds2, v.me, v.mi),
    READ("1040", 001_040, "RHO THETA", v.rho_nm, v.theta_deg),
    READ("1042", 001_042, "X Y", v.value_1, v.value_2),
    READ("1120", 001_120, ".", v.value / kKnots),
    READ("1131", 001_131, ".", v.value),
    READ("1141", 001_141, ".", v.value),
    READ("1150", 001_150, "XA XC X2", v.xa, v.xc, v.x2),
    READ("1170", 001_170, "CON RAD MAN DOU RDPC GHO TRE", v.con, v.rad, v.man, v.dou, v.rdpc - 1, v.gho, v.tre),
    READ("4040", 004_040, ".", v.value),
    READ("4060", 004_060, "MRVA RAMLD RAMHD MSAW APW CLAM STCA", v.functions[0].status, v.functions[1].status,
         v.functions[2].status, v.functions[3].status, v.functions[4].status, v.functions[5].status,
         v.functions[6].status),
    READ("4100", 004_100, "AN", v.an.text),
    READ("4120", 004_120, "CC/TID CC/CS", v.cc.table, v.cc.criticality),
    READ("4170", 004_170, "M31/MODE3A", v.m31.code),

    // ---- weather ----
    READ("8020", 008_020, "ORG I S TST ER", v.org, v.intensity, v.dir_raw, v.tst, v.er),
    READ("8034", 008_034, "[0]/STR [0]/ENDR [0]/AZ", v.vectors[0].start_range, v.vectors[0].end_range,
         v.vectors[0].azimuth_deg),
    READ("8036", 008_036, "[0]/X [0]/Y [0]/LENGTH", v.vectors[0].x, v.vectors[0].y, v.vectors[0].length),
    READ("8038", 008_038, "[0]/X1 [0]/Y1 [0]/X2 [0]/Y2", v.vectors[0].x1, v.vectors[0].y1, v.vectors[0].x2,
         v.vectors[0].y2),
    READ("8040", 008_040, "ORG I FSTLST CSN", v.org, v.intensity, v.fst_lst, v.csn),
    READ("8050", 008_050, "[0]/X1 [0]/Y1", v.points[0].x, v.points[0].y),
    READ("8100", 008_100, "F R Q", v.f, v.r, v.q),
    READ("8120", 008_120, ".", v.value),

    // ---- surface movement ----
    READ("10020", 010_020, "TYP DCR CHN GBS CRT SIM TST RAB LOP TOT SPI", v.typ, v.dcr, v.chn - 1, v.gbs, v.crt, v.sim,
         v.tst, v.rab, v.lop, v.tot, v.spi),
    READ("10040", 010_040, "RHO TH", v.rho_m, v.theta_deg),
    READ("10042", 010_042, "X Y", v.value_1, v.value_2),
    READ("10170", 010_170, "CNF TRE CST MAH TCC STH TOM DOU MRS GHO", v.cnf, v.tre, v.cst, v.mah, v.tcc, v.sth, v.tom,
         v.dou, v.mrs, v.gho),
    READ("10270", 010_270, "LENGTH ORIENTATION WIDTH", v.length_m, v.orientation_deg, v.width_m),
    READ("10500", 010_500, "DEVX DEVY COVXY", v.x_m, v.y_m, v.xy_m),
    READ("10550", 010_550, "NOGO OVL TSV DIV TTF", v.nogo, v.ovl, !v.time_valid, v.div, v.ttf),

    // ---- independent non-cooperative surveillance ----
    READ("15000", 015_000, "MT RG", v.mt, v.rg),
    READ("15020", 015_020, "MOMU TTAX SCD", v.momu, v.ttax, v.scd),
    READ("15170", 015_170, "BIZ BAZ TUR CSTP CSTH CNF", v.biz, v.baz, v.tur, v.cstp, v.csth, v.cnf),
    READ("15300", 015_300, "[0]/CLS [0]/PRB", v.classes[0].cls, v.classes[0].prb_percent),
    READ("15400", 015_400, "PID ON", v.pid, v.on),
    READ("15600", 015_600,
         "P84/LATITUDE P84/LONGITUDE HPR/RSHPX HPR/RSHPY HPR/CORSHPXY HPP/SDHPX HPP/SDHPY HPP/COSDHPXY", POSITION(p84),
         v.hpr.x, v.hpr.y, v.hpr.correlation, v.hpp.x, v.hpp.y, v.hpp.correlation),
    READ("15601", 015_601,
         "GH RSGH SDGH CI6/UCI6 CI6/LCI6 CI9/UCI9 CI9/LCI9 COGHHP/X COGHHP/Y COGHHV/X COGHHV/Y COGHHA/X COGHHA/Y",
         v.gh.value, v.rs_gh.value, v.sd_gh.value, v.ci6.upper_m, v.ci6.lower_m, v.ci9.upper_m, v.ci9.lower_m,
         v.co_ghhp.x, v.co_ghhp.y, v.co_ghhv.x, v.co_ghhv.y, v.co_ghha.x, v.co_ghha.y),
    READ("15602", 015_602,
         "HV/X HV/Y RSHV/X RSHV/Y RSHV/CORSHVXY SDHV/X SDHV/Y SDHV/COHVXY COHVHP/COHVXHPX COHVHP/COHVXHPY "
         "COHVHP/COHVYHPX COHVHP/COHVYHPY",
         v.hv.x, v.hv.y, v.rs_hv.x, v.rs_hv.y, v.rs_hv.correlation, v.sd_hv.x, v.sd_hv.y, v.sd_hv.correlation,
         v.co_hvhp.xx, v.co_hvhp.xy, v.co_hvhp.yx, v.co_hvhp.yy),
    READ("15604", 015_604, "VV RSVV SDVV/SDVV SDVV/COVVGH COVVHP/X COVVHP/Y COVVHV/X COVVHV/Y COVVHA/X COVVHA/Y",
         v.vv.value, v.rs_vv.value, v.sd_vv.value, v.sd_vv.correlation, v.co_vvhp.x, v.co_vvhp.y, v.co_vvhv.x,
         v.co_vvhv.y, v.co_vvha.x, v.co_vvha.y),
    READ("15625", 015_625, "R RSR SDR RR RSRR SDRR/SDRR SDRR/CORRR RA SDRA/SDRA SDRA/CORAR SDRA/CORARR", v.r.value,
         v.rs_r.value, v.sd_r.value, v.rr.value, v.rs_rr.value, v.sd_rr.value, v.sd_rr.correlation, v.ra.value,
         v.sd_ra.value, v.sd_ra.range_correlation, v.sd_ra.rate_correlation),
    READ("15626", 015_626, "DV SDDV DA SDDA/SDDA SDDA/CODADV CODVR CODVRR CODVRA CODAR CODARR CODARA", v.dv.value,
         v.sd_dv.value, v.da.value, v.sd_da.value, v.sd_da.correlation, v.co_dvr.value, v.co_dvrr.value,
         v.co_dvra.value, v.co_dar.value, v.co_darr.value, v.co_dara.value),
    READ("15627", 015_627, "AZ RSAZ SDASZ AZR SDAZR/SDAZR SDAZR/COAZRAZ AZEX/S AZEX/E", v.az.value, v.rs_az.value,
         v.sd_az.value, v.azr.value, v.sd_azr.value, v.sd_azr.correlation, v.azex.start_deg, v.azex.end_deg),
    READ("16200", 016_200, ".", v.period_s),
    READ("16300", 016_300, "[0]/PID [0]/TID [0]/RID", v.pairs[0].pid, v.pairs[0].tid, v.pairs[0].rid),
    READ("16405", 016_405, ".", v.height_m),
    READ("16410", 016_410, "[0]/TID [0]/LAT [0]/LON [0]/ALT [0]/TTO [0]/ATO [0]/PCI", v.transmitters[0].tid,
         POSITION(transmitters[0].site), v.transmitters[0].site.altitude_m, v.transmitters[0].tto_ns,
         v.transmitters[0].ato_ns, v.transmitters[0].pci),
    READ("16420", 016_420, "[0]/RID [0]/LAT [0]/LON [0]/ALT", v.receivers[0].rid, POSITION(receivers[0].site),
         v.receivers[0].site.altitude_m),

    // ---- multilateration ----
    READ("19550", 019_550, "NOGO OVL TSV TTF", v.nogo, v.ovl, v.tsv, v.ttf),
    READ("19551", 019_551, "TP1A TP1B TP2A TP2B TP3A TP3B TP4A TP4B", v.tp[0].exec, v.tp[0].good, v.tp[1].exec,
         v.tp[1].good, v.tp[2].exec, v.tp[2].good, v.tp[3].exec, v.tp[3].good),
    READ("19552", 019_552, "[0]/RSI [0]/RS1090 [0]/TX1030 [0]/TX1090 [0]/RSS [0]/RSO", v.sensors[0].rsi,
         v.sensors[0].rs1090, v.sensors[0].tx1030, v.sensors[0].tx1090, v.sensors[0].rss, v.sensors[0].rso),
    READ("19553", 019_553, "REFTR1 REFTR2 REFTR3 REFTR4", v.transponders[0], v.transponders[1], v.transponders[2],
         v.transponders[3]),
    READ("19610", 019_610, ".", v.height_m),
    READ("19620", 019_620, ".", v.undulation_m),
    READ("20020", 020_020, "SSR MS HF VDL4 UAT DME OT RAB SPI CHN GBS CRT SIM TST CF", v.ssr, v.ms, v.hf, v.vdl4, v.uat,
         v.dme, v.ot, v.rab, v.spi, v.chn - 1, v.gbs, v.crt, v.sim, v.tst, v.cf),
    READ("20055", 020_055, "V G L MODE1", v.not_validated, v.garbled, v.smoothed, v.code),
    READ("20170", 020_170, "CNF TRE CST CDM MAH STH GHO", v.cnf, v.tre, v.cst, v.cdm, v.mah, v.sth, v.gho),
    READ("20210", 020_210, "AX AY", v.value_1, v.value_2),
    READ("20230", 020_230, "COM STAT MSSC ARC AIC B1A B1B", v.com, v.stat, v.mssc, v.arc, v.aic, v.b1a, v.b1b),
    READ("20300", 020_300, ".", v.value),
    READ("20310", 020_310, "TRB MSG", v.trb, v.msg),
    READ("20500", 020_500, "DOP/X DOP/Y DOP/XY SDP/X SDP/Y SDP/XY SDH", v.dop.x, v.dop.y, v.dop.xy, v.sdp.x_m,
         v.sdp.y_m, v.sdp.xy, v.sdh.height_m),

    // ---- ADS-B ----
    READ("21008", 021_008, "RA TS ARV CDTIA NOTTCAS SA", v.ra, v.ts, v.arv, v.cdti, v.not_tcas, v.sa),
    READ("21016", 021_016, ".", v.period_s),
    READ("21020", 021_020, ".", v.emitter_category),
    READ("21032", 021_032, ".", v.accuracy_s),
    READ("21040", 021_040, "ATP ARC RC RAB DCR GBS SIM TST SAA CL IPC NOGO CPR LDPJ RCF", v.atp, v.arc - 1, v.rc, v.rab,
         v.dcr, v.gbs, v.sim, v.tst, v.saa, v.cl, v.ipc, v.nogo, v.cpr, v.ldpj, v.rcf),
    READ("21090", 021_090, "NUCRNACV NUCPNIC NICBARO SIL NACP SILS SDA GVA PIC", v.nucr_nacv, v.nucp_nic,
         v.nic_baro.value, v.sil.value, v.nac_p.value, v.sil_s.value, v.sda.value, v.gva.value, v.pic.value),
    READ("21095", 021_095, ".", v.value),
    READ("21140", 021_140, ".", v.altitude_ft),
    READ("21145", 021_145, ".", v.altitude_ft / kFeet),
    READ("21146", 021_146, "SAS S ALT", v.sas, v.source, v.altitude_ft),
    READ("21150", 021_150, "IM AS", v.im, v.im ? v.mach : v.ias_kt / kKnots),
    READ("21151", 021_151, "RE TAS", v.re, v.speed_kt),
    READ("21152", 021_152, ".", v.heading_deg),
    READ("21160", 021_160, "RE GS TA", v.re, v.ground_speed_kt / kKnots, v.track_angle_deg),
    READ("21200", 021_200, "ICF LNAV ME PS SS", v.icf, v.lnav, v.me, v.ps, v.ss),
    READ("21210", 021_210, "VNS VN LTT", v.vns, v.vn, v.ltt),
    READ("21230", 021_230, ".", v.roll_deg),
    READ("21295", 021_295, "AOS TRD M3A QI TI1 MAM GH FL ISA FSA AS TAS MH BVR GVR GV TAR TI2 TS MET ROA ARA SCC",
         v.aos.age_s, v.trd.age_s, v.m3a.age_s, v.qi.age_s, v.ti.age_s, v.mam.age_s, v.gh.age_s, v.fl.age_s,
         v.sal.age_s, v.fsa.age_s, v.as.age_s, v.tas.age_s, v.mh.age_s, v.bvr.age_s, v.gvr.age_s, v.gv.age_s,
         v.tar.age_s, v.tid.age_s, v.ts.age_s, v.met.age_s, v.roa.age_s, v.ara.age_s, v.scc.age_s),
    READ("21400", 021_400, ".", v.value),
    READ("21903", 021_A03, "DCR GBS SIM TST RAB SAA SPI ATP ARC", v.dcr, v.gbs, v.sim, v.tst, v.rab, v.saa, v.spi,
         v.atp < 2 ? 1 - v.atp : v.atp, v.arc % 3),
    READ("21905", 021_A05, "AC MN DC PA", v.ac, v.mn, v.dc, v.pa),
    READ("21906", 021_A06, "DTI MDS UAT VDL OTR", v.cdti, v.mds, v.uat, v.vdl, v.otr),
    READ("21908", 021_A08, ".", v.status),
    READ("23015", 023_015, "SID STYP", v.sid, v.styp),
    READ("23100", 023_100, "NOGO ODP OXT MSC TSV SPO RN GSSP", v.nogo, v.odp, v.oxt, v.msc, !v.time_valid, v.spo, v.rn,
         v.gssp_s),

    // ---- monoradar ----
    READ("34050", 034_050,
         "COM/NOGO COM/RDPC COM/RDPR COM/OVLRDP COM/OVLXMT COM/MSC COM/TSV SSR/ANT SSR/CHAB SSR/OVL SSR/MSC",
         v.com.nogo, v.com.rdpc - 1, v.com.rdpr, v.com.ovl_rdp, v.com.ovl_xmt, !v.com.msc, !v.com.time_valid,
         v.ssr.ant - 1, v.ssr.ch_ab, v.ssr.ovl, !v.ssr.msc),
    READ("34060", 034_060, "COM/REDRDP COM/REDXMT PSR/POL PSR/REDRAD PSR/STC SSR/REDRAD MDS/REDRAD MDS/CLU",
         v.com.red_rdp, v.com.red_xmt, v.psr.pol, v.psr.red_rad, v.psr.stc, v.ssr.red_rad, v.mds.red_rad,
         !v.mds.clu_autonomous),
    READ("34070", 034_070, "[0]/TYP [0]/COUNT", v.counters[0].typ, v.counters[0].value),
    READ("34120", 034_120, "HGT LAT LON", v.height_m, v.latitude_deg, v.longitude_deg),
    READ("48020", 048_020, "TYP SIM RDP SPI RAB TST ME MI FOEFRI", v.typ, v.sim, v.rdp - 1, v.spi, v.rab, v.tst, v.me,
         v.mi, v.foe_fri),
    READ("48030", 048_030, "[0]", v.codes[0]),
    READ("48040", 048_040, "RHO THETA", v.rho_nm, v.theta_deg),
    READ("48042", 048_042, "X Y", v.x_raw / 128.0, v.y_raw / 128.0),
    READ("48050", 048_050, "V G L MODE2", v.not_validated, v.garbled, v.smoothed, v.code),
    READ("48110", 048_110, "3DH", v.height_ft),
    READ("48130", 048_130, "SRL SRR SAM", v.srl.deg, v.srr.value, v.sam.value),
    READ("48170", 048_170, "CNF RAD DOU MAH CDM", v.cnf, v.rad, v.dou, v.man, v.cdm),
    READ("48210", 048_210, "SIGX SIGY SIGV SIGH", v.sigma_x_nm, v.sigma_y_nm, v.sigma_v_kt / kKnots, v.sigma_h_deg),
    READ("48230", 048_230, "COM STAT MSSC ARC AIC B1A B1B", v.com, v.stat, v.mssc, v.arc, v.aic, v.b1a, v.b1b),

    // ---- system tracks ----
    READ("62080", 062_080,
         "MON SPI MRH SRC CNF SIM TSE TSB FPC AFF STP KOS AMA MD4 ME MI MD5 CST PSR SSR MDS ADS SUC AAC SDS EMS PFT "
         "FPLT DUPT DUPF DUPM SFC IDD IEC MLAT",
         v.mon, v.spi, v.mrh, v.src, v.cnf, v.sim, v.tse, v.tsb, v.fpc, v.aff, v.stp, v.kos, v.ama, v.md4, v.me, v.mi,
         v.md5, v.cst, v.psr, v.ssr, v.mds, v.ads, v.suc, v.aac, v.sds, v.ems, v.pft, v.fplt, v.dupt, v.dupf, v.dupm,
         v.sfc, v.idd, v.iec, v.mlat),
    READ("62110", 062_110,
         "SUM/M5 SUM/ID SUM/DA SUM/M1 SUM/M2 SUM/M3 SUM/MC SUM/X PMN/PIN PMN/NAT PMN/MIS POS/LAT POS/LON GA/RES GA/GA "
         "EM1/EM1 TOS XP/X5 XP/XC XP/X3 XP/X2 XP/X1",
         v.sum.m5, v.sum.id, v.sum.da, v.sum.m1, v.sum.m2, v.sum.m3, v.sum.mc, v.sum.x, v.pmn.pin, v.pmn.nat, v.pmn.mis,
         POSITION(pos), v.ga.res, v.ga.altitude_ft, v.em1.code, v.tos.offset_s, v.xp.x5, v.xp.xc, v.xp.x3, v.xp.x2,
         v.xp.x1),
    READ("62130", 062_130, ".", v.altitude_ft),
    READ("62135", 062_135, "QNH CTB", v.qnh, v.altitude_ft / kFeet),
    READ("62136", 062_136, ".", v.level_ft / kFeet),
    READ("62200", 062_200, "TRANS LONG VERT ADF", v.transversal, v.longitudinal, v.vertical, v.adf),
    READ("62210", 062_210, "AX AY", v.ax_m_s2, v.ay_m_s2),
    READ("62220", 062_220, ".", v.rate_ft_min),
    READ("62270", 062_270, "LENGTH ORIENTATION WIDTH", v.length_m, v.orientation_deg, v.width_m),
    READ("62290", 062_290, "TRK PSR SSR MDS ADS ES VDL UAT LOP MLT", v.trk.age_s, v.psr.age_s, v.ssr.age_s, v.mds.age_s,
         v.ads.age_s, v.es.age_s, v.vdl.age_s, v.uat.age_s, v.lop.age_s, v.mlt.age_s),
    READ("62295", 062_295,
         "MFL MD1 MD2 MDA MD4 MD5 MHG IAS TAS SAL FSS TID COM SAB ACS BVR GVR RAN TAR TAN GSP VUN MET EMC POS GAL PUN "
         "MB IAR MAC BPS",
         v.mfl.age_s, v.md1.age_s, v.md2.age_s, v.mda.age_s, v.md4.age_s, v.md5.age_s, v.mhg.age_s, v.ias.age_s,
         v.tas.age_s, v.sal.age_s, v.fss.age_s, v.tid.age_s, v.com.age_s, v.sab.age_s, v.acs.age_s, v.bvr.age_s,
         v.gvr.age_s, v.ran.age_s, v.tar.age_s, v.tan.age_s, v.gsp.age_s, v.vun.age_s, v.met.age_s, v.emc.age_s,
         v.pos.age_s, v.gal.age_s, v.pun.age_s, v.mb.age_s, v.iar.age_s, v.mac.age_s, v.bps.age_s),
    READ("62300", 062_300, ".", v.fleet),
    READ("62340", 062_340,
         "SID/SAC SID/SIC POS/RHO POS/THETA HEIGHT MDC/V MDC/G MDC/LMC MDA/V MDA/G MDA/L MDA/MODE3A TYP/TYP TYP/SIM "
         "TYP/RAB TYP/TST",
         v.sid.sac, v.sid.sic, v.pos.rho_nm, v.pos.theta_deg, v.hei.height_ft, v.mdc.not_validated, v.mdc.garbled,
         v.mdc.flight_level / 4.0, v.mda.not_validated, v.mda.garbled, v.mda.smoothed, v.mda.code, v.typ.typ, v.typ.sim,
         v.typ.rab, v.typ.tst),
    READ(
        "62380", 062_380,
        "ADR ID MHG IAS/IM IAS/IAS TAS SAL/SAS SAL/SRC SAL/ALT FSS/MV FSS/AH FSS/AM FSS/ALT TIS/NAV TIS/NVB TID[0]/TCA "
        "TID[0]/NC TID[0]/TCPN TID[0]/ALT TID[0]/LAT TID[0]/LON TID[0]/PT TID[0]/TD TID[0]/TRA TID[0]/TOA TID[0]/TOV "
        "TID[0]/TTR COM/COM COM/STAT COM/SSC COM/ARC COM/AIC COM/B1A COM/B1B SAB/AC SAB/MN SAB/DC SAB/GBS SAB/STAT",
        v.adr.address, v.id.text, v.mhg.angle_deg, v.ias.im, v.ias.im ? v.ias.mach : v.ias.airspeed_kt / kKnots,
        v.tas.airspeed_kt, v.sal.sas, v.sal.src, v.sal.altitude_ft, v.fss.mv, v.fss.ah, v.fss.am, v.fss.altitude_ft,
        v.tis.nav, v.tis.nvb, v.tid.points[0].tca, v.tid.points[0].nc, v.tid.points[0].tcpn,
        v.tid.points[0].altitude_ft, POSITION(tid.points[0]), v.tid.points[0].pt, v.tid.points[0].td,
        v.tid.points[0].tra, v.tid.points[0].toa, v.tid.points[0].tov_s, v.tid.points[0].ttr_nm, v.com.com, v.com.stat,
        v.com.ssc, v.com.arc, v.com.aic, v.com.b1a, v.com.b1b, v.sab.ac, v.sab.mn, v.sab.dc, v.sab.gbs, v.sab.stat),
    READ("62380", 062_380,
         "BVR GVR RAN TAR/TI TAR/ROT TAN GS VUN MET/WS MET/WD MET/TMP MET/TRB MET/WSD MET/WDD MET/TMPD MET/TRBD EMC "
         "POS/LAT POS/LON GAL PUN/PUN IAR MAC BPS/BPS",
         v.bvr.rate_ft_min, v.gvr.rate_ft_min, v.ran.roll_deg, v.tar.ti, v.tar.rate_deg_s, v.tan.angle_deg,
         v.gsp.speed_kt / kKnots, v.vun.category, v.met.ws, v.met.wd, v.met.tmp, v.met.trb, v.met.wind_speed_kt,
         v.met.wind_direction_deg, v.met.temperature_c, v.met.turbulence, v.emc.category, POSITION(pos),
         v.gal.altitude_ft, v.pun.category, v.iar.airspeed_kt, v.mac.mach, v.bps.pressure_mb),
    READ("62390", 062_390,
         "TAG/SAC TAG/SIC CS IFI/TYP IFI/NBR FCT/GATOAT FCT/FR1FR2 FCT/RVSM FCT/HPR TAC WTC DEP DST CFL CTL/CENTRE "
         "CTL/POSITION TOD[0]/TYP TOD[0]/DAY TOD[0]/HOR TOD[0]/MIN TOD[0]/AVS TOD[0]/SEC AST STS/EMP STS/AVL STD STA "
         "PEM/VA PEM/MODE3A PEC",
         v.tag.sac, v.tag.sic, v.csn.text, v.ifi.typ, v.ifi.nbr, v.fct.gat_oat, v.fct.fr, v.fct.rvsm, v.fct.hpr,
         v.tac.text, v.wtc.text, v.dep.text, v.dst.text, v.cfl.level_ft / kFeet, v.ctl.centre, v.ctl.position,
         v.tod.times[0].typ, v.tod.times[0].day, v.tod.times[0].hour, v.tod.times[0].minute, v.tod.times[0].avs,
         v.tod.times[0].second, v.ast.text, v.sts.emp, v.sts.avl, v.std.text, v.sta.text, v.pem.va, v.pem.code,
         v.pec.text),
    READ("62500", 062_500, "APC/X APC/Y COV APW/LAT APW/LON AGA ABA ATV/X ATV/Y AA/X AA/Y ARC", v.apc.x_m, v.apc.y_m,
         v.cov.covariance_m, POSITION(apw), v.aga.altitude_ft, v.aba.altitude_ft / kFeet, v.atv.x_m_s, v.atv.y_m_s,
         v.aa.x_m_s2, v.aa.y_m_s2, v.arc.rate_ft_min),
    READ("62510", 062_510, "[0]/IDENT [0]/TRACK", v.tracks[0].unit, v.tracks[0].track_number),
    READ("63060", 063_060, "CON PSR SSR MDS ADS MLT OPS ODP OXT MSC TSV NPW", v.con, v.psr, v.ssr, v.mds, v.ads, v.mlt,
         v.ops, v.odp, v.oxt, v.msc, v.tsv, v.npw),
    READ("65020", 065_020, ".", v.number),
    READ("65040", 065_040, "NOGO OVL TSV PSS", v.nogo, v.ovl, v.tsv, v.pss),

    // ---- video ----
    READ("240020", 240_020, ".", v.message_index),
    READ("240040", 240_040, "STARTAZ ENDAZ STARTRG CELLDUR", v.start_azimuth_deg, v.end_azimuth_deg, v.start_range,
         v.cell_duration_s * 1e9),
    READ("240041", 240_041, "STARTAZ ENDAZ STARTRG CELLDUR", v.start_azimuth_deg, v.end_azimuth_deg, v.start_range,
         v.cell_duration_s * 1e15),
    READ("240048", 240_048, "C RES", v.dci, v.res),
    READ("240049", 240_049, "NBVB NBCELLS", v.valid_octets, v.valid_cells),

    // ---- Mode S registers, which hand over what their statuses announce ----
    READ_REGISTER(05, "FTC SS SAF ALT T F LAT LON", v.format_type_code, v.surveillance_status, v.single_antenna,
                  v.altitude_ft, v.time, v.cpr_odd, v.cpr_latitude, v.cpr_longitude),
    READ_REGISTER(08, "FTC EC ID", v.format_type_code, v.emitter_category, v.callsign),
    READ_REGISTER(20, "ID", v.callsign),
    READ_REGISTER(40, "MCP_ALT FMS_ALT BARO VNAV ALT_HOLD APPROACH SOURCE", v.mcp_fcu_altitude_ft, v.fms_altitude_ft,
                  v.barometric_setting_mb, v.vnav, v.altitude_hold, v.approach, v.target_source),
    READ_REGISTER(50, "ROLL TRACK GS TRACK_RATE TAS", v.roll_angle_deg, v.true_track_deg, v.ground_speed_kt,
                  v.track_rate_deg_s, v.true_airspeed_kt),
    READ_REGISTER(60, "HDG IAS MACH BARO_RATE INERTIAL_RATE", v.magnetic_heading_deg, v.indicated_airspeed_kt, v.mach,
                  v.barometric_altitude_rate_ft_min, v.inertial_vertical_velocity_ft_min),
};

// ---- The published reading ----

// By path, "I048/040/RHO".
using Values = std::map<std::string, double>;

// Texts with a character that is none are left out.
void take_value(void *context, const ast_field_value_t *value) {
    const std::string text = value->text;
    const bool is_text = value->field->kind == AST_FIELD_ASCII || value->field->kind == AST_FIELD_ICAO;
    if (is_text && text.find('?') != text.npos) return;
    const double number = value->has_number ? value->number : static_cast<double>(value->raw);
    static_cast<Values *>(context)->emplace(value->field->path, is_text ? number_of(value->text) : number);
}

// Nothing for octets that one of both takes for an item of another size.
Values published(ast_dataitem_type_t type, const std::vector<uint8_t> &octets) {
    Values values;
    const ast_uap_t uap = AST_UAP_CAT021_VER24;
    if (ast_dataitem_get_published_size(octets.data(), octets.size(), type, uap) == octets.size())
        ast_dataitem_walk(Item(type, octets), uap, 0, take_value, &values);
    return values;
}

// ---- Octets ----

// A primary subfield that announces all subfields that there are, or some of them.
std::vector<uint8_t> primary_of(ast_dataitem_type_t type, uint64_t subfields, bool all, std::mt19937 &random) {
    std::vector<uint8_t> primary = full_primary(subfields);
    for (uint32_t number = 1; number <= subfields; ++number) {
        const bool is_spare = ast_subfield_get_id(AST_SUBFIELD_TYPE(type, number)) == std::string("---");
        if (is_spare || (!all && random() % 2 == 0)) ast_fspec_set(primary.data(), primary.size(), number, false);
    }
    return primary;
}

// One octet all over, then random ones, letters in turn. Some have extensions, few elements, or all subfields.
std::vector<uint8_t> sample(ast_dataitem_type_t type, uint8_t bds, unsigned number, std::mt19937 &random) {
    constexpr uint8_t kChosen[] = {0x00, 0xFF, 0x7F, 0x80, 0x01, 0xFE};
    const auto next = [&]() -> uint32_t {
        if (number < std::size(kChosen)) return kChosen[number];
        const auto any = static_cast<uint32_t>(random());
        return number % 4 == 3 ? 'A' + any % 26 : any;
    };
    std::vector<uint8_t> octets(160);
    std::ranges::generate(octets, [&] { return static_cast<uint8_t>(next()); });
    if (const uint64_t subfields = ast_dataitem_subfields_get_number(type); subfields != 0) {
        std::ranges::copy(primary_of(type, subfields, number % 4 == 0, random), octets.begin());
    } else if (bds != 0) {
        octets[0] = 1;
        if (number % 4 == 3) octets[1] = bds; // which some registers begin with
        octets[8] = bds;
    } else if (number % 4 == 1) {
        for (size_t i = 0; i < 12; ++i) octets[i] |= 1;
    } else if (number % 4 == 2) {
        octets[0] = static_cast<uint8_t>(1 + octets[0] % 3);
    }
    return filled(type, octets);
}

// ---- Both ----

struct Field {
    unsigned compared = 0;
    std::set<double> values;
    std::string difference; // the first one
};

using Fields = std::map<std::string, Field>;

// "I034/070/TYP" of the first element of a list, "BDS50/ROLL", "0.26 I021/090/PA" of an older layout under that number.
std::string documented(const std::string &path, ast_dataitem_type_t type, uint8_t bds) {
    static const std::regex kElement(R"(\[0\])"), kRegister(R"(.*\[0\])");
    char name[] = "BDS00";
    std::snprintf(name, sizeof name, "BDS%02X", bds);
    if (bds != 0) return std::regex_replace(path, kRegister, name);
    return (type / 100 == 219 ? "0.26 " : "") + std::regex_replace(path, kElement, "");
}

// The fields of a pair by their published paths.
struct Named {
    std::string path;
    Field *field;
};

std::vector<Named> names_of(const Pair &pair, ast_dataitem_type_t type, Fields &fields) {
    std::vector<Named> names;
    std::istringstream words(pair.fields);
    for (std::string name; words >> name;) {
        std::string path = ast_dataitem_type_to_str(type);
        if (pair.bds != 0) path += "[0]";
        if (name != ".") path += (name[0] == '[' ? "" : "/") + name;
        names.push_back({path, &fields[documented(path, type, pair.bds)]});
    }
    return names;
}

void compare(const Pair &pair, ast_dataitem_type_t type, const std::vector<uint8_t> &octets,
             const std::vector<Named> &names) {
    const Numbers here = pair.read(Item(type, octets));
    if (here.empty()) return;
    ASSERT_EQ(here.size(), names.size()) << type;
    const Values there = published(type, octets);
    for (size_t i = 0; i < names.size(); ++i) {
        const auto found = there.find(names[i].path);
        if (found == there.end()) continue;
        Field &field = *names[i].field;
        ++field.compared;
        if (field.values.size() < 2) field.values.insert(found->second);
        const bool is_same = std::abs(here[i] - found->second) <= 1e-9 * std::max(1.0, std::abs(found->second));
        if (is_same || !field.difference.empty()) continue;
        std::ostringstream difference;
        difference << names[i].path << " of " << testing::PrintToString(octets) << ": " << here[i] << ", published "
                   << found->second;
        field.difference = difference.str();
    }
}

Fields compare_all() {
    constexpr unsigned kSamples = 1000;
    Fields fields;
    std::mt19937 random;
    ast_log_handler_reg(nullptr);
    for (const Pair &pair : kPairs) {
        std::istringstream types(pair.types);
        for (ast_dataitem_type_t type = 0; types >> type;) {
            const auto names = names_of(pair, type, fields);
            for (unsigned i = 0; i < kSamples; ++i) compare(pair, type, sample(type, pair.bds, i, random), names);
        }
    }
    ast_log_handler_reg(ast_log_stdout);
    return fields;
}

// What stands in code in the first cell of a row of the document.
std::set<std::string> documented_differences() {
    std::ifstream document(std::filesystem::path(AST_TREE) / "docs/differences.md");
    EXPECT_TRUE(document);
    static const std::regex kCode("`([^`]+)`");
    std::set<std::string> paths;
    for (std::string line; std::getline(document, line);) {
        if (!line.starts_with("| ")) continue;
        const std::string cell = line.substr(0, line.find('|', 1));
        for (std::sregex_iterator code(cell.begin(), cell.end(), kCode), end; code != end; ++code)
            paths.insert((*code)[1]);
    }
    return paths;
}

TEST(Differences, AreThoseThatTheDocumentExplains) {
    std::set<std::string> different;
    const auto fields = compare_all();
    for (const auto &[path, field] : fields) {
        EXPECT_GE(field.compared, 3U) << path;
        EXPECT_GE(field.values.size(), 2U) << path;
        if (!field.difference.empty()) different.insert(path);
    }
    const auto explained = documented_differences();
    for (const std::string &path : different)
        EXPECT_TRUE(explained.contains(path)) << "is not explained: " << fields.at(path).difference;
    for (const std::string &path : explained)
        EXPECT_TRUE(different.contains(path)) << "is explained, but the same: " << path;
}

} // namespace
