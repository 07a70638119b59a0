An unknown command ends the script with status 2; what follows is not run.
== files ==
== script ==
show file_count
frobnicate
show file_count
== output ==
file_count	0
== status ==
2
