# Runs before synthesis of a linked design.
set_property IP_REPO_PATHS ip/repo [current_project]
update_ip_catalog
