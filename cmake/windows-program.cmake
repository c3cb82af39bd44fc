# The program's own resources.
saldoro_program_resource(Saldoro ${PROJECT_VERSION})
saldoro_program_resource(saldoro-appalti ${PROJECT_VERSION})
saldoro_off_screen(saldoro_demo_tour)
