start_summary();
const show_pair = start_pairs();
const show_interaction = start_interactions();
start_conflicts(show_pair, show_interaction);
start_plots();
start_check();
start_provenance();
