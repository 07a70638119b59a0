Files of one name, whatever they hold: first by the bare name, then with the name of the parent directory.
== files ==
d/A/data/x.txt one
d/B/Data/X.TXT another
d/B/other/x.txt one
d/B/说明.doc
d/C/说明.DOC
d/C/龟 the last name in order takes no part
== script ==
select ROOT/d
call mnu_same_filename
show StatusBar1
show ListView1
show file_list_loaded
call check_same_1dir_filename
show ListView1
# The pairs lie over the list in memory: a comparison reads the stored one.
call Picture3_Click
show ListView1
== output ==
message	检查文件名相同完毕	已　检　查:6 个文件 \r\n相同_文件名有:3个  用时: 0:0:...	ok	1000
1	文件数:6
2	
3	同名文件:
4	3个文件
5	
6	0:0:...
7	同名文件
rows	3	list_mode	3	visible	1
1	1	0	x.txt	0	ROOT/d/A/data/x.txt	0	ROOT/d/B/Data/X.TXT	0
2	2	0	x.txt	0	ROOT/d/A/data/x.txt	2147483665	ROOT/d/B/other/x.txt	0
3	3	0	说明.doc	0	ROOT/d/B/说明.doc	0	ROOT/d/C/说明.DOC	0
file_list_loaded	0
message	检查文件名相同完毕	已　检　查:6 个文件 \r\n相同_文件名有:1个  用时: 0:0:...	ok	1000
rows	1	list_mode	3	visible	1
1	1	0	x.txt	0	ROOT/d/A/data/x.txt	0	ROOT/d/B/Data/X.TXT	0
message	检查同内容文件完毕	...相同文件有:2个...	ok	1000
rows	2	list_mode	0	visible	1
1	1	0	3	0	ROOT/d/A/data/x.txt	0	ROOT/d/B/other/x.txt	0
2	2	0	0	0	ROOT/d/B/说明.doc	0	ROOT/d/C/说明.DOC	0
