Files of the stored list that the ordinary calls cannot handle: one that has gone since, and none after a search.
== files ==
program/文件清单.txt ROOT/d/没了.txt
d/照片 1.jpg x
d/a*b x
d/.hidden x
== script ==
call search_no_normal_file
show List1
show StatusBar1
select ROOT/d
call picture2_Click
call search_no_normal_file
show List1
show StatusBar1
== output ==
rows	3
1	0	0	ROOT/d/没了.txt   -1
2	0	0	...
3	0	0	ROOT/d/没了.txt
1	文件数:1
2	字节:
3	1异常文件
4	
5	
6	0:0:...
7	查异常文件结束
rows	0
1	搜索出:3
2	
3	0异常文件
4	
5	
6	0:0:...
7	查异常文件结束
