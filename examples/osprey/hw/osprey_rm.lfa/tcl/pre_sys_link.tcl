# Runs before the system link.
set_property IP_REPO_PATHS ip/repo [current_project]
