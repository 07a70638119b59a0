A row that the list does not have cannot be picked or checked.
== files ==
program/仅搜索的文件类型.txt 1.jpg
program/常用文件扩展名.txt .jpg
== script ==
call select_m_Click
mouse Form_no_dire.List3 click 1 1
set Form_no_dire.List3 1 0
show Form_no_dire.List3
mouse Form_no_dire.List3 click 1 1 left ctrl
show Form_no_dire.List3
set Form_no_dire.List3 2 1
== output ==
rows	1
1	1	0	.jpg
rows	1
1	0	0	.jpg
== status ==
2
